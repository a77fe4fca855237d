#include "bench.h"
#include "headless_machine.h"
#include "text_peer.h"

#include <plix/controls/PLIXChiseledTextField.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/graphics/NSFont.h>

#include <malloc.h>

#include <string>
#include <vector>

namespace plix::bench {

namespace {

constexpr int labelCount = 300;
constexpr int columns = 10;
constexpr Size cell { 100, 24 };
constexpr Size windowSize { columns * cell.width, labelCount / columns* cell.height };

std::string textOf(int index)
{
    return "Label " + std::to_string(index);
}

Point originOf(int index)
{
    return { cell.width * static_cast<float>(index % columns), cell.height * static_cast<float>(index / columns) };
}

template <typename Label> class Labels {
public:
    Labels()
        : window(make<NSWindow>(rectWith({}, windowSize), NSTitledWindowMask, NSBackingStoreBuffered, false))
    {
        window->setReleasedWhenClosed(false);
        add();
        window->makeKeyAndOrderFront(nullptr);
        window->displayIfNeeded();
    }
    ~Labels() { window->close(); }
    Labels(Labels const&) = delete;
    Labels& operator=(Labels const&) = delete;

    void add()
    {
        auto const font = NSFont::systemFontOfSize(13);
        for (int i = 0; i < labelCount; ++i) {
            auto const label = make<Label>(rectWith(originOf(i), cell));
            label->setBezeled(false);
            label->setDrawsBackground(false);
            label->setEditable(false);
            label->setFont(font);
            label->setStringValue(textOf(i));
            window->contentView()->addSubview(*label);
        }
    }
    void redraw()
    {
        window->contentView()->setNeedsDisplay(true);
        window->displayIfNeeded();
    }
    /// The keyboard goes, or comes back.
    void changeKey()
    {
        m_isKey = !m_isKey;
        if (m_isKey)
            window->becomeKeyWindow();
        else
            window->resignKeyWindow();
        window->displayIfNeeded();
    }

    Ref<NSWindow> window;

private:
    bool m_isKey { true };
};

/// Of one more label in a window that has some already, drawn once.
template <typename Label> double bytesOfOne()
{
    Labels<Label> labels;
    auto const before = mallinfo2().uordblks;
    labels.add();
    labels.redraw();
    return static_cast<double>(mallinfo2().uordblks - before) / labelCount;
}

}

// Both texts of each label.
PLIX_FIGURE("chiseled.redraw_300")
{
    Machine const machine;
    Labels<PLIXChiseledTextField> labels;
    auto const ours = [&] { labels.redraw(); };
#ifdef PLIX_BENCH_PANGO
    PangoPeer peer;
    figure.wantRatio(3);
    figure.timeAgainst("each text laid out afresh by Pango", { ours }, { [&] {
        peer.clear();
        for (int i = 0; i < labelCount; ++i) {
            auto const origin = originOf(i);
            peer.draw(textOf(i), origin.x, origin.y + 1);
            peer.draw(textOf(i), origin.x, origin.y);
        }
    } });
#else
    figure.time({ ours });
#endif
}

// The window loses the keyboard or gets it back, and is drawn.
PLIX_FIGURE("chiseled.key_change_300")
{
    Machine const machine;
    Labels<PLIXChiseledTextField> labels;
    Labels<NSTextField> plain;
    figure.timeAgainst("plain labels", { [&] { labels.changeKey(); } }, { [&] { plain.changeKey(); } });
}

PLIX_FIGURE("chiseled.bytes")
{
    Machine const machine;
    figure.setUnit("bytes");
    figure.countAgainst("a plain label", bytesOfOne<PLIXChiseledTextField>(), bytesOfOne<NSTextField>());
}

}
