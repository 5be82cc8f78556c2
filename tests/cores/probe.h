/*
 * The probe core: a libretro core without a machine inside. A test in the same process opens the
 * module that the host opens, takes the one `struct probe` in it, sets what the core says and reads
 * what it was told. tests/support/probe_core.h does the opening.
 */
#pragma once

#include <velmora/libretro.h>

#define PROBE_CALLS_KEPT 256

#ifdef __cplusplus
extern "C" {
#endif

struct probe {
    /* What the core answers. */
    unsigned api_version;
    bool need_fullpath;
    bool reject_game;
    struct retro_system_av_info av_info;
    void* save_ram;
    size_t save_ram_size;
    size_t state_size;
    bool reject_state;

    /* Called in every entry point before it answers, with its name. May use all callbacks below. */
    void (*entered)(void* user, const char* entry);
    void* user;

    /* What the host gave. */
    retro_environment_t environment;
    retro_video_refresh_t video_refresh;
    retro_audio_sample_t audio_sample;
    retro_audio_sample_batch_t audio_sample_batch;
    retro_input_poll_t input_poll;
    retro_input_state_t input_state;
    const struct retro_game_info* game; /* only while retro_load_game runs */
    void* to_serialize;                 /* only while retro_serialize runs */
    const void* to_unserialize;         /* only while retro_unserialize runs */
    size_t serialized_size;
    unsigned port;
    unsigned device;

    /* The entry points in the order of the calls, as many as fit. */
    const char* calls[PROBE_CALLS_KEPT];
    size_t call_count;

    /* The calls of probe_access; one tells a module opened anew from one that was still open. */
    unsigned accesses;
};

/* The core, back at its defaults. */
RETRO_API struct probe* probe_access(void);

#ifdef __cplusplus
}
#endif
