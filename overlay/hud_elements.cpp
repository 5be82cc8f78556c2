#include "overlay/hud_elements.h"

#include <SDL3/SDL_render.h>

#include <array>
#include <string>
#include <utility>

namespace velmora {
namespace {

using namespace hud_layout;

void setColour(const HudCanvas& canvas, const Colour& colour) {
    const std::uint8_t alpha = canvas.blends ? colour.blendedAlpha : 255;
    SDL_SetRenderDrawColor(canvas.renderer, colour.r, colour.g, colour.b, alpha);
}

void fillElement(const HudCanvas& canvas, const Colour& colour) {
    fillRect(canvas, {0, 0, canvas.area.w, canvas.area.h}, colour);
}

void drawText(const HudCanvas& canvas, const Position& position, const char* text) {
    setColour(canvas, textColour);
    SDL_RenderDebugText(canvas.renderer, static_cast<float>(canvas.area.x + position.x),
                        static_cast<float>(canvas.area.y + position.y), text);
}

bool messageVisible(const PlayHud& hud) {
    return hud.showMessage && !hud.message.empty() && !hud.menuOpen;
}

void drawMessageStrip(const HudCanvas& canvas, const PlayHud& hud) {
    fillElement(canvas, messageBackground);
    drawText(canvas, messageText, hud.message.c_str());
}

bool volumeVisible(const PlayHud& hud) { return hud.showVolume; }

void drawVolumePanel(const HudCanvas& canvas, const PlayHud& hud) {
    fillElement(canvas, volumeBackground);
    fillRect(canvas, volumeTrack, volumeTrackColour);
    fillRect(canvas, volumeFill(hud.volume), accent);
    drawText(canvas, volumeLabel, hud.muted ? "Muted" : "Volume");
}

std::string slotText(const PlayHud& hud, std::size_t slot) {
    std::string text = std::to_string(slot + 1) + "  ";
    return text += slot < hud.slotNames.size() ? hud.slotNames[slot] : "Empty";
}

std::array<std::string, pickerRowCount> rowTexts(const MenuScreen& screen, const PlayHud& hud) {
    std::array<std::string, pickerRowCount> texts;
    for (std::size_t i = 0; i < screen.rows.size(); ++i)
        texts[i] = screen.rows[i].label ? screen.rows[i].label : slotText(hud, i);
    return texts;
}

void drawRow(const HudCanvas& canvas, const Row& row, bool selected, const std::string& text) {
    if (selected)
        fillRect(canvas, row.rect, accent);
    else if (!row.label)
        fillRect(canvas, row.rect, slotBackground);
    drawText(canvas, row.text, text.c_str());
}

bool menuVisible(const PlayHud& hud) { return hud.menuOpen; }

void drawMenuPanel(const HudCanvas& canvas, const PlayHud& hud) {
    const MenuScreen& screen = menuScreen(hud.screen);
    const auto texts = rowTexts(screen, hud);
    fillElement(canvas, menuBackground);
    drawText(canvas, menuTitle, screen.title);
    for (std::size_t i = 0; i < screen.rows.size(); ++i)
        drawRow(canvas, screen.rows[i], std::cmp_equal(hud.selected, i), texts[i]);
}

constexpr std::array elements = {
    HudElement{messageVisible, messageStrip, drawMessageStrip, false},
    HudElement{volumeVisible, volumePanel, drawVolumePanel, false},
    HudElement{menuVisible, menuPanel, drawMenuPanel, true},
};

} // namespace

std::span<const HudElement> hudElements() { return elements; }

void fillRect(const HudCanvas& canvas, const Rect& rect, const Colour& colour) {
    // SDL's software renderer gives a rectangle of no width a column of its own.
    if (rect.w <= 0 || rect.h <= 0)
        return;
    const Rect placed = moved(rect, {canvas.area.x, canvas.area.y});
    const SDL_FRect target = {static_cast<float>(placed.x), static_cast<float>(placed.y),
                              static_cast<float>(placed.w), static_cast<float>(placed.h)};
    setColour(canvas, colour);
    SDL_RenderFillRect(canvas.renderer, &target);
}

} // namespace velmora
