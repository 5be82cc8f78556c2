/*
 * The libretro API, version 1, as far as VelmoraHost and its cores speak it.
 *
 * Names, numbers and layouts are those of the published API, so a core built
 * against any libretro header works here and the reverse. The include guard is
 * the published one on purpose: whichever header a program includes first wins,
 * and the other becomes empty.
 *
 * Valid as C99 and as C++.
 */
#ifndef LIBRETRO_H__
#define LIBRETRO_H__

#include <limits.h>
#include <stddef.h>
#include <stdint.h>
#ifndef __cplusplus
#include <stdbool.h>
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The targets of this library have one calling convention each. */
#ifndef RETRO_CALLCONV
#define RETRO_CALLCONV
#endif

/* Marks the entry points that a core exports. */
#ifndef RETRO_API
#if defined(_WIN32) && defined(__GNUC__)
#define RETRO_API RETRO_CALLCONV __attribute__((__dllexport__))
#elif defined(_WIN32)
#define RETRO_API RETRO_CALLCONV __declspec(dllexport)
#else
#define RETRO_API RETRO_CALLCONV __attribute__((__visibility__("default")))
#endif
#endif

/* What retro_api_version must return. */
#define RETRO_API_VERSION 1

/* Kinds of input device; what a port holds and what input is asked of. */
#define RETRO_DEVICE_NONE 0
#define RETRO_DEVICE_JOYPAD 1
#define RETRO_DEVICE_MOUSE 2
#define RETRO_DEVICE_KEYBOARD 3
#define RETRO_DEVICE_LIGHTGUN 4
#define RETRO_DEVICE_ANALOG 5
#define RETRO_DEVICE_POINTER 6

/* Joypad buttons. The face buttons are named by their SNES places. */
#define RETRO_DEVICE_ID_JOYPAD_B 0
#define RETRO_DEVICE_ID_JOYPAD_Y 1
#define RETRO_DEVICE_ID_JOYPAD_SELECT 2
#define RETRO_DEVICE_ID_JOYPAD_START 3
#define RETRO_DEVICE_ID_JOYPAD_UP 4
#define RETRO_DEVICE_ID_JOYPAD_DOWN 5
#define RETRO_DEVICE_ID_JOYPAD_LEFT 6
#define RETRO_DEVICE_ID_JOYPAD_RIGHT 7
#define RETRO_DEVICE_ID_JOYPAD_A 8
#define RETRO_DEVICE_ID_JOYPAD_X 9
#define RETRO_DEVICE_ID_JOYPAD_L 10
#define RETRO_DEVICE_ID_JOYPAD_R 11
#define RETRO_DEVICE_ID_JOYPAD_L2 12
#define RETRO_DEVICE_ID_JOYPAD_R2 13
#define RETRO_DEVICE_ID_JOYPAD_L3 14
#define RETRO_DEVICE_ID_JOYPAD_R3 15
/* Asks for all sixteen buttons at once, button n in bit n. */
#define RETRO_DEVICE_ID_JOYPAD_MASK 256

/* Television standard of the emulated machine. */
#define RETRO_REGION_NTSC 0
#define RETRO_REGION_PAL 1

/* Memory regions that a core may lend to the frontend. */
#define RETRO_MEMORY_SAVE_RAM 0
#define RETRO_MEMORY_RTC 1
#define RETRO_MEMORY_SYSTEM_RAM 2
#define RETRO_MEMORY_VIDEO_RAM 3

/* Set in the number of a command whose shape the API does not promise to keep. */
#define RETRO_ENVIRONMENT_EXPERIMENTAL 0x10000

/* Environment commands: what the frontend is told, and what it is asked for. */
#define RETRO_ENVIRONMENT_SET_ROTATION 1
#define RETRO_ENVIRONMENT_GET_OVERSCAN 2
#define RETRO_ENVIRONMENT_GET_CAN_DUPE 3
#define RETRO_ENVIRONMENT_SET_MESSAGE 6
#define RETRO_ENVIRONMENT_SHUTDOWN 7
#define RETRO_ENVIRONMENT_SET_PERFORMANCE_LEVEL 8
#define RETRO_ENVIRONMENT_GET_SYSTEM_DIRECTORY 9   /* const char ** */
#define RETRO_ENVIRONMENT_SET_PIXEL_FORMAT 10      /* const enum retro_pixel_format * */
#define RETRO_ENVIRONMENT_SET_INPUT_DESCRIPTORS 11 /* const struct retro_input_descriptor * */
#define RETRO_ENVIRONMENT_SET_KEYBOARD_CALLBACK 12
#define RETRO_ENVIRONMENT_SET_DISK_CONTROL_INTERFACE 13
#define RETRO_ENVIRONMENT_SET_HW_RENDER 14       /* struct retro_hw_render_callback * */
#define RETRO_ENVIRONMENT_GET_VARIABLE 15        /* struct retro_variable * */
#define RETRO_ENVIRONMENT_SET_VARIABLES 16       /* const struct retro_variable * */
#define RETRO_ENVIRONMENT_GET_VARIABLE_UPDATE 17 /* bool * */
#define RETRO_ENVIRONMENT_SET_SUPPORT_NO_GAME 18 /* const bool * */
#define RETRO_ENVIRONMENT_GET_LIBRETRO_PATH 19
#define RETRO_ENVIRONMENT_SET_FRAME_TIME_CALLBACK 21
#define RETRO_ENVIRONMENT_SET_AUDIO_CALLBACK 22
#define RETRO_ENVIRONMENT_GET_RUMBLE_INTERFACE 23
#define RETRO_ENVIRONMENT_GET_INPUT_DEVICE_CAPABILITIES 24
#define RETRO_ENVIRONMENT_GET_SENSOR_INTERFACE (25 | RETRO_ENVIRONMENT_EXPERIMENTAL)
#define RETRO_ENVIRONMENT_GET_CAMERA_INTERFACE (26 | RETRO_ENVIRONMENT_EXPERIMENTAL)
#define RETRO_ENVIRONMENT_GET_LOG_INTERFACE 27 /* struct retro_log_callback * */
#define RETRO_ENVIRONMENT_GET_PERF_INTERFACE 28
#define RETRO_ENVIRONMENT_GET_LOCATION_INTERFACE 29
#define RETRO_ENVIRONMENT_GET_CORE_ASSETS_DIRECTORY 30 /* const char ** */
#define RETRO_ENVIRONMENT_GET_CONTENT_DIRECTORY 30     /* the older name of the same */
#define RETRO_ENVIRONMENT_GET_SAVE_DIRECTORY 31        /* const char ** */
#define RETRO_ENVIRONMENT_SET_SYSTEM_AV_INFO 32        /* const struct retro_system_av_info * */
#define RETRO_ENVIRONMENT_SET_PROC_ADDRESS_CALLBACK 33
#define RETRO_ENVIRONMENT_SET_SUBSYSTEM_INFO 34
#define RETRO_ENVIRONMENT_SET_CONTROLLER_INFO 35
#define RETRO_ENVIRONMENT_SET_MEMORY_MAPS (36 | RETRO_ENVIRONMENT_EXPERIMENTAL)
#define RETRO_ENVIRONMENT_SET_GEOMETRY 37 /* const struct retro_game_geometry * */
#define RETRO_ENVIRONMENT_GET_USERNAME 38
#define RETRO_ENVIRONMENT_GET_LANGUAGE 39 /* unsigned *, a retro_language */
#define RETRO_ENVIRONMENT_GET_CURRENT_SOFTWARE_FRAMEBUFFER (40 | RETRO_ENVIRONMENT_EXPERIMENTAL)
#define RETRO_ENVIRONMENT_GET_HW_RENDER_INTERFACE (41 | RETRO_ENVIRONMENT_EXPERIMENTAL)
#define RETRO_ENVIRONMENT_SET_SUPPORT_ACHIEVEMENTS (42 | RETRO_ENVIRONMENT_EXPERIMENTAL)
#define RETRO_ENVIRONMENT_SET_HW_RENDER_CONTEXT_NEGOTIATION_INTERFACE                              \
    (43 | RETRO_ENVIRONMENT_EXPERIMENTAL)
#define RETRO_ENVIRONMENT_SET_SERIALIZATION_QUIRKS 44
#define RETRO_ENVIRONMENT_SET_HW_SHARED_CONTEXT (44 | RETRO_ENVIRONMENT_EXPERIMENTAL)
#define RETRO_ENVIRONMENT_GET_VFS_INTERFACE (45 | RETRO_ENVIRONMENT_EXPERIMENTAL)
#define RETRO_ENVIRONMENT_GET_LED_INTERFACE (46 | RETRO_ENVIRONMENT_EXPERIMENTAL)
#define RETRO_ENVIRONMENT_GET_AUDIO_VIDEO_ENABLE (47 | RETRO_ENVIRONMENT_EXPERIMENTAL)
#define RETRO_ENVIRONMENT_GET_MIDI_INTERFACE (48 | RETRO_ENVIRONMENT_EXPERIMENTAL)
#define RETRO_ENVIRONMENT_GET_FASTFORWARDING (49 | RETRO_ENVIRONMENT_EXPERIMENTAL)
#define RETRO_ENVIRONMENT_GET_TARGET_REFRESH_RATE (50 | RETRO_ENVIRONMENT_EXPERIMENTAL)
#define RETRO_ENVIRONMENT_GET_INPUT_BITMASKS (51 | RETRO_ENVIRONMENT_EXPERIMENTAL) /* bool * */
#define RETRO_ENVIRONMENT_GET_CORE_OPTIONS_VERSION 52                              /* unsigned * */
#define RETRO_ENVIRONMENT_SET_CORE_OPTIONS 53      /* const retro_core_option_definition * */
#define RETRO_ENVIRONMENT_SET_CORE_OPTIONS_INTL 54 /* const retro_core_options_intl * */
#define RETRO_ENVIRONMENT_SET_CORE_OPTIONS_DISPLAY 55
#define RETRO_ENVIRONMENT_GET_PREFERRED_HW_RENDER 56 /* unsigned *, a retro_hw_context_type */
#define RETRO_ENVIRONMENT_GET_DISK_CONTROL_INTERFACE_VERSION 57
#define RETRO_ENVIRONMENT_SET_DISK_CONTROL_EXT_INTERFACE 58
#define RETRO_ENVIRONMENT_GET_MESSAGE_INTERFACE_VERSION 59
#define RETRO_ENVIRONMENT_SET_MESSAGE_EXT 60
#define RETRO_ENVIRONMENT_GET_INPUT_MAX_USERS 61
#define RETRO_ENVIRONMENT_SET_AUDIO_BUFFER_STATUS_CALLBACK 62
#define RETRO_ENVIRONMENT_SET_MINIMUM_AUDIO_LATENCY 63
#define RETRO_ENVIRONMENT_SET_FASTFORWARDING_OVERRIDE 64
#define RETRO_ENVIRONMENT_SET_CONTENT_INFO_OVERRIDE 65
#define RETRO_ENVIRONMENT_GET_GAME_INFO_EXT 66
#define RETRO_ENVIRONMENT_SET_CORE_OPTIONS_V2 67      /* const retro_core_options_v2 * */
#define RETRO_ENVIRONMENT_SET_CORE_OPTIONS_V2_INTL 68 /* const retro_core_options_v2_intl * */
#define RETRO_ENVIRONMENT_SET_CORE_OPTIONS_UPDATE_DISPLAY_CALLBACK 69
#define RETRO_ENVIRONMENT_SET_VARIABLE 70
#define RETRO_ENVIRONMENT_GET_THROTTLE_STATE (71 | RETRO_ENVIRONMENT_EXPERIMENTAL)
#define RETRO_ENVIRONMENT_GET_SAVESTATE_CONTEXT (72 | RETRO_ENVIRONMENT_EXPERIMENTAL) /* int * */

/* The last enumerator of each enum makes it as wide as an int everywhere. */

enum retro_language { RETRO_LANGUAGE_ENGLISH = 0, RETRO_LANGUAGE_DUMMY = INT_MAX };

enum retro_pixel_format {
    RETRO_PIXEL_FORMAT_0RGB1555 = 0, /* 16 bits in the machine's byte order, top bit unused */
    RETRO_PIXEL_FORMAT_XRGB8888 = 1, /* 32 bits, top byte unused */
    RETRO_PIXEL_FORMAT_RGB565 = 2,   /* 16 bits */
    RETRO_PIXEL_FORMAT_UNKNOWN = INT_MAX
};

enum retro_savestate_context {
    RETRO_SAVESTATE_CONTEXT_NORMAL = 0,
    RETRO_SAVESTATE_CONTEXT_UNKNOWN = INT_MAX
};

enum retro_log_level {
    RETRO_LOG_DEBUG = 0,
    RETRO_LOG_INFO = 1,
    RETRO_LOG_WARN = 2,
    RETRO_LOG_ERROR = 3,
    RETRO_LOG_DUMMY = INT_MAX
};

enum retro_hw_context_type {
    RETRO_HW_CONTEXT_NONE = 0,
    RETRO_HW_CONTEXT_OPENGL = 1, /* compatibility profile */
    RETRO_HW_CONTEXT_OPENGLES2 = 2,
    RETRO_HW_CONTEXT_OPENGL_CORE = 3,
    RETRO_HW_CONTEXT_OPENGLES3 = 4,
    RETRO_HW_CONTEXT_OPENGLES_VERSION = 5,
    RETRO_HW_CONTEXT_VULKAN = 6,
    RETRO_HW_CONTEXT_DUMMY = INT_MAX
};

/* Callbacks that the frontend gives to the core. */

typedef bool(RETRO_CALLCONV* retro_environment_t)(unsigned command, void* data);
/* pitch is the distance of two rows in bytes. */
typedef void(RETRO_CALLCONV* retro_video_refresh_t)(const void* data, unsigned width,
                                                    unsigned height, size_t pitch);
typedef void(RETRO_CALLCONV* retro_audio_sample_t)(int16_t left, int16_t right);
/* data holds left and right in turn; returns the count of frames taken. */
typedef size_t(RETRO_CALLCONV* retro_audio_sample_batch_t)(const int16_t* data, size_t frames);
typedef void(RETRO_CALLCONV* retro_input_poll_t)(void);
typedef int16_t(RETRO_CALLCONV* retro_input_state_t)(unsigned port, unsigned device, unsigned index,
                                                     unsigned id);

/* Given as the frame's data by a core that has drawn into the hardware framebuffer. */
#ifdef __cplusplus
#define RETRO_HW_FRAME_BUFFER_VALID (reinterpret_cast<void*>(static_cast<intptr_t>(-1)))
#else
#define RETRO_HW_FRAME_BUFFER_VALID ((void*)(intptr_t)-1)
#endif

/* Logging. */

typedef void(RETRO_CALLCONV* retro_log_printf_t)(enum retro_log_level level, const char* format,
                                                 ...);

struct retro_log_callback {
    retro_log_printf_t log;
};

/* Hardware rendering. */

typedef void(RETRO_CALLCONV* retro_proc_address_t)(void);
typedef void(RETRO_CALLCONV* retro_hw_context_reset_t)(void);
typedef uintptr_t(RETRO_CALLCONV* retro_hw_get_current_framebuffer_t)(void);
typedef retro_proc_address_t(RETRO_CALLCONV* retro_hw_get_proc_address_t)(const char* symbol);

struct retro_hw_render_callback {
    enum retro_hw_context_type context_type;
    retro_hw_context_reset_t context_reset; /* a new context: make every GL object */
    retro_hw_get_current_framebuffer_t get_current_framebuffer; /* written by the frontend */
    retro_hw_get_proc_address_t get_proc_address;               /* written by the frontend */
    bool depth;
    bool stencil;
    bool bottom_left_origin; /* GL's own orientation; false puts the first row on top */
    unsigned version_major;
    unsigned version_minor;
    bool cache_context;
    retro_hw_context_reset_t context_destroy; /* the context is about to go; may be null */
    bool debug_context;
};

/* What a core says of itself, its game and its picture. */

struct retro_system_info {
    const char* library_name;
    const char* library_version;
    const char* valid_extensions; /* separated by bars, without dots */
    bool need_fullpath;           /* the core opens the file itself */
    bool block_extract;
};

struct retro_game_geometry {
    unsigned base_width;
    unsigned base_height;
    unsigned max_width;
    unsigned max_height;
    float aspect_ratio; /* 0 or less means base_width : base_height */
};

struct retro_system_timing {
    double fps;
    double sample_rate; /* Hz */
};

struct retro_system_av_info {
    struct retro_game_geometry geometry;
    struct retro_system_timing timing;
};

struct retro_game_info {
    const char* path; /* UTF-8 */
    const void* data; /* the whole file, or null if the core wants the path only */
    size_t size;
    const char* meta;
};

/* Labels for buttons; a list ends with a null description. */
struct retro_input_descriptor {
    unsigned port;
    unsigned device;
    unsigned index;
    unsigned id;
    const char* description;
};

/* Options, in their three generations. Each list ends with a null key. */

/* When declared: value is "Description; first|second". When read: the value in force. */
struct retro_variable {
    const char* key;
    const char* value;
};

#define RETRO_NUM_CORE_OPTION_VALUES_MAX 128

struct retro_core_option_value {
    const char* value;
    const char* label; /* null shows the value itself */
};

struct retro_core_option_definition {
    const char* key;
    const char* desc;
    const char* info;
    struct retro_core_option_value values[RETRO_NUM_CORE_OPTION_VALUES_MAX];
    const char* default_value; /* null means the first value */
};

struct retro_core_options_intl {
    struct retro_core_option_definition* us;
    struct retro_core_option_definition* local;
};

struct retro_core_option_v2_category {
    const char* key;
    const char* desc;
    const char* info;
};

struct retro_core_option_v2_definition {
    const char* key;
    const char* desc;
    const char* desc_categorized;
    const char* info;
    const char* info_categorized;
    const char* category_key;
    struct retro_core_option_value values[RETRO_NUM_CORE_OPTION_VALUES_MAX];
    const char* default_value; /* null means the first value */
};

struct retro_core_options_v2 {
    struct retro_core_option_v2_category* categories;
    struct retro_core_option_v2_definition* definitions;
};

struct retro_core_options_v2_intl {
    struct retro_core_options_v2* us;
    struct retro_core_options_v2* local;
};

/* Entry points of a core. */

RETRO_API void retro_set_environment(retro_environment_t callback);
RETRO_API void retro_set_video_refresh(retro_video_refresh_t callback);
RETRO_API void retro_set_audio_sample(retro_audio_sample_t callback);
RETRO_API void retro_set_audio_sample_batch(retro_audio_sample_batch_t callback);
RETRO_API void retro_set_input_poll(retro_input_poll_t callback);
RETRO_API void retro_set_input_state(retro_input_state_t callback);
RETRO_API void retro_init(void);
RETRO_API void retro_deinit(void);
RETRO_API unsigned retro_api_version(void);
RETRO_API void retro_get_system_info(struct retro_system_info* info);
RETRO_API void retro_get_system_av_info(struct retro_system_av_info* info);
RETRO_API void retro_set_controller_port_device(unsigned port, unsigned device);
RETRO_API void retro_reset(void);
RETRO_API void retro_run(void);
RETRO_API size_t retro_serialize_size(void);
RETRO_API bool retro_serialize(void* data, size_t size);
RETRO_API bool retro_unserialize(const void* data, size_t size);
RETRO_API void retro_cheat_reset(void);
RETRO_API void retro_cheat_set(unsigned index, bool enabled, const char* code);
RETRO_API bool retro_load_game(const struct retro_game_info* game);
RETRO_API bool retro_load_game_special(unsigned type, const struct retro_game_info* games,
                                       size_t count);
RETRO_API void retro_unload_game(void);
RETRO_API unsigned retro_get_region(void);
RETRO_API void* retro_get_memory_data(unsigned id);
RETRO_API size_t retro_get_memory_size(unsigned id);

#ifdef __cplusplus
}
#endif

#endif
