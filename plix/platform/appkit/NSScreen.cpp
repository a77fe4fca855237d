#include <plix/platform/appkit/NSScreen.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/host/Display.h>
#include <plix/platform/host/Host.h>

namespace plix {

PLIX_DESCRIBE(NSScreen)
{
}

std::vector<Ref<NSScreen>> const& NSScreen::screens()
{
    static auto& s_screens = *new std::vector<Ref<NSScreen>>;
    static auto& s_seen = *new std::vector<HostScreen>;
    auto now = host().display().screens();
    if (now != s_seen || s_screens.empty()) {
        s_seen = std::move(now);
        s_screens.clear();
        for (auto const& seen : s_seen) {
            auto screen = make<NSScreen>();
            screen->m_frame = seen.frame;
            screen->m_visibleFrame = seen.visibleFrame;
            screen->m_backingScale = seen.backingScale;
            s_screens.push_back(std::move(screen));
        }
    }
    return s_screens;
}

NSScreen& NSScreen::mainScreen()
{
    auto* const key = NSApp ? NSApp->keyWindow() : nullptr;
    auto* const ofKey = key ? key->screen() : nullptr;
    return ofKey ? *ofKey : *screens().front();
}

NSScreen* NSScreen::screenForRect(Rect rect)
{
    NSScreen* best = nullptr;
    float bestArea = 0;
    for (auto const& screen : screens()) {
        auto const common = NSIntersectionRect(rect, screen->frame());
        float const area = common.width * common.height;
        if (area > bestArea) {
            best = screen.get();
            bestArea = area;
        }
    }
    return best;
}

bool NSScreen::isEqual(NSObject const* other) const
{
    auto const* const screen = dynamic_cast<NSScreen const*>(other);
    return screen && screen->m_frame == m_frame && screen->m_visibleFrame == m_visibleFrame
        && screen->m_backingScale == m_backingScale;
}

std::size_t NSScreen::hash() const
{
    return std::hash<float> {}(m_frame.x) ^ (std::hash<float> {}(m_frame.width) << 1U);
}

}
