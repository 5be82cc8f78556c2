#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <velmora/export.h>
#include <velmora/libretro.h>
#include <velmora/play_hud.h>

struct SDL_Window;
struct SDL_Renderer;
struct SDL_Texture;
struct SDL_GLContextState;

namespace velmora {

class LibretroHost;
struct HudElement;

// The one window of a play session and all that puts pictures into it.
//
// A session runs on one of two paths, and the core alone decides which. Software: `create` opens a
// window with an SDL renderer, and the core's frames go through a streaming texture. Hardware: the
// core asks for OpenGL, `setupHardware` opens a window with a context, and the core draws into a
// framebuffer object that `present` blits to the window.
//
// One object at a time has a window: SDL's message hook, the menu's messages and a core's callbacks
// have one receiver in a process.
//
// The frontend has initialised SDL_INIT_VIDEO. All members run on the one thread that owns the
// window and runs the core. No operation throws; false means that SDL or the size asked for stood
// in the way, and SDL_GetError holds SDL's reason where SDL was the one that failed. Every
// operation is safe without a window.
class VELMORA_EXPORT SdlVideo {
public:
    SdlVideo() = default;
    // Does what `destroy` does.
    ~SdlVideo();
    SdlVideo(const SdlVideo&) = delete;
    SdlVideo& operator=(const SdlVideo&) = delete;

    // --- The window ---

    // Opens the window for software frames, three times `width` by `height` (at least 160 by 144)
    // window units, with the first renderer that comes up. While a core's OpenGL window stands it
    // only sets the title. An older software window is destroyed first. False: no window, no
    // renderer, or a window side beyond 16384; no window is open then.
    bool create(const std::string& title, int width, int height);

    // Tears everything down: the core's context_destroy, GL objects, renderer, menu, window. Events
    // still queued are discarded. Safe at any time, also twice. On the hardware path call it while
    // the core module is open.
    void destroy();

    // Sets the title, UTF-8, of an existing window; without one, nothing, and it is not remembered.
    void setTitle(const std::string& title);

    // Drains SDL's event queue; call it on every pass, also while paused. Sets `quit` on a close
    // request and never clears it. Always true.
    bool pumpEvents(bool& quit);

    // The pointer's last position in window units, 0, 0 before the first motion.
    void mousePos(int& x, int& y) const;

    // Puts the window into desktop fullscreen or back. True means asked for: a window manager may
    // take its time, or decide otherwise later. False: no window, or SDL refused; nothing has
    // changed then.
    bool setFullscreen(bool on);
    bool toggleFullscreen();

    // Keeps the window above others. The wish is remembered for windows to come, so without a
    // window the result is true. False: SDL refused; the wish stays for the next window.
    bool setAlwaysOnTop(bool on);
    bool toggleAlwaysOnTop();

    // --- Frames ---

    // The RETRO_PIXEL_FORMAT_* value of the uploads that follow; an unknown one counts as 0RGB1555.
    void setPixelFormat(unsigned int format);

    // Takes a core's frame: `height` rows of `width` pixels, `pitch` bytes from row to row, top row
    // first, only read during the call. Shows nothing by itself. A null frame, an empty one, a
    // pitch smaller than a row or beyond an int, and a hardware frame while no hardware session
    // runs are dropped, and the picture stays. On the hardware path only the size is noted.
    void upload(const void* data, unsigned int width, unsigned int height, std::size_t pitch);

    // Shows the newest picture, fitted to the window by its pixel ratio with nearest-neighbour
    // scaling and bars, with the overlay on top. Waits for the display's refresh where the driver
    // does so. On the software path nothing is shown before the first frame. When the graphics
    // device is lost (SDL_EVENT_RENDER_DEVICE_RESET and _LOST, which an SDL event watch sees), call
    // `create` again: the picture comes back with the core's next frame.
    void present();

    // Writes the current picture to `path`, UTF-8, as a Windows bitmap whatever its extension. The
    // software path takes the render target as it stands, bars and overlay included; where
    // `present` swaps buffers, as with direct3d11, that is an older picture, so present the wanted
    // one twice before. The hardware path takes the core's whole framebuffer. May wait for a resize
    // under way. False: no picture, an empty path, or the file could not be written.
    bool captureScreenshot(const std::string& path);

    // --- Hardware rendering, called on behalf of the core ---

    // Opens an OpenGL window with the context that `callback` asks for, twice `width` by `height`
    // (at least 320 by 240) window units, gives the core a framebuffer object of at least 640 by
    // 480, and runs the core's context_reset. A window that was open is destroyed. False: no such
    // context, or a window side beyond 16384; or asked for by the core's own context_reset or
    // context_destroy, and then what runs goes on undisturbed.
    bool setupHardware(const retro_hw_render_callback& callback, int width, int height);

    // Gives the core's framebuffer a new size, at least 256 by 224 pixels; the same size keeps its
    // names, and a side beyond 16384 leaves it as it is. Nothing on the software path.
    void resizeHardwareBuffers(unsigned int width, unsigned int height);

    // The GL name of the framebuffer the core draws into, 0 for none. It can change on a resize.
    std::uintptr_t currentFramebuffer() const;

    // The two functions handed to the core: `currentFramebuffer` of the instance on the hardware
    // path (0 without one), and SDL's GL symbol lookup for the current context.
    static std::uintptr_t framebufferThunk();
    static retro_proc_address_t procAddressThunk(const char* symbol);

    // --- Overlay and menu: what the user asked for, as action codes ---
    //
    // The codes stand in velmora/action_codes.h; -1 is always nothing. The library acts on none of
    // them.

    // Hands out a pending left click's position in window units and uses it up. False: none
    // pending, x and y are left alone. Of several clicks only the latest is kept.
    bool consumeClick(int& x, int& y);

    // The action code of the overlay at a point in window units, or -1. Changes nothing, so it
    // serves for hovering too. The overlay is drawn in pixels: on a display where a window unit is
    // more than one, what is hit and what is seen lie apart.
    int hitTest(int x, int y) const;

    // The next overlay action: one posted in `pendingAction` first, then what a pending click hits
    // at this moment. Uses up what it takes; -1 for none and for a miss.
    int consumeAction();

    // The latest native menu command, once; -1 when there is none.
    int consumeMenuAction();

    // Stores a menu command for `consumeMenuAction`, unfiltered; for a frontend that shows the menu
    // by itself.
    void onNativeMenu(int id);

    // The popup `menu` is about to open: the "Game" popup gets fresh slot lists, any other handle
    // nothing.
    void onInitMenuPopup(void* menu);

    // Rebuilds the menu's slot lists from `hud` at once; they are rebuilt by themselves whenever
    // the "Game" popup opens.
    void refreshNativeMenu();

private:
    // Tells of a core that is going.
    friend class LibretroHost;

    struct GlFunctions;

    bool createGlWindow(const std::string& title, int width, int height);
    void showWindow();
    void destroyPicture();
    void noteClick(float x, float y);
    void convertRow(const unsigned char* src, unsigned int* dst, unsigned int width);
    void ensureTexture(unsigned int width, unsigned int height);
    void convertFrame(const unsigned char* data, unsigned int width, unsigned int height,
                      std::size_t pitch);
    void noteFrameSize(unsigned int width, unsigned int height);
    void presentSoftware();
    void presentHardware();
    void blitFrame();
    bool captureSoftware(const std::string& path);
    bool captureHardware(const std::string& path);
    bool createFbo(unsigned int width, unsigned int height);
    void attachDepthStencil();
    void destroyFbo();
    void runContextCallback(retro_hw_context_reset_t callback);
    void forgetCoreOf(const LibretroHost* host);
    bool loadGlFunctions();
    bool makeCurrent() const;
    void renderHud();
    void renderHudSdl(int w, int h);
    void composePanel(int x, int y, int w, int h, const HudElement& element);
    void blitRgba(int x, int y, int w, int h, const void* pixels);
    void attachNativeMenu();
    void buildNativeMenu();
    void rebuildSlotMenus();
    void showNativeMenu(bool show);
    void updateAlwaysOnTopMenu();
    void detachNativeMenu();
    void destroyNativeMenu();

    // The instance that serves framebufferThunk, and the GL entry points of its context.
    static SdlVideo* active;
    static GlFunctions gl;

    SDL_Window* window = nullptr;
    SDL_Renderer* renderer = nullptr;
    SDL_GLContextState* glContext = nullptr;
    SDL_Texture* texture = nullptr;
    int textureWidth = 0;
    int textureHeight = 0;
    unsigned int pixelFormat = 0;
    int frameWidth = 0;
    int frameHeight = 0;
    std::vector<std::uint32_t> converted;
    bool hardware = false;
    bool fullscreen = false;
    bool alwaysOnTop = false;
    retro_hw_render_callback hwRender = {};
    unsigned int fboWidth = 0;
    unsigned int fboHeight = 0;
    unsigned int fbo = 0;
    unsigned int fboTexture = 0;
    unsigned int fboDepthStencil = 0;

public:
    // What the overlay shows; written by the frontend, only read by the library.
    PlayHud hud;

private:
    int mouseX = 0;
    int mouseY = 0;
    int clickX = 0;
    int clickY = 0;
    bool clickPending = false;
    std::int32_t menuAction = -1;

public:
    // An action code that the frontend posts for its own next `consumeAction`, -1 for none; for
    // instance the row that a key press confirmed.
    std::int32_t pendingAction = -1;

private:
    void* menuBar = nullptr;
    void* gameMenu = nullptr;
    void* saveMenu = nullptr;
    void* loadMenu = nullptr;
    unsigned int hudTexture = 0;
    unsigned int hudFbo = 0;
    // Whose core `hwRender` came from.
    const LibretroHost* hwOwner = nullptr;
    // The core's context_reset or context_destroy runs.
    bool inContextCallback = false;
};

} // namespace velmora
