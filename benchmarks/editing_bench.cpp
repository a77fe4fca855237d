#include "bench.h"

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/host/headless/HeadlessHost.h>

#include <string>

namespace plix::bench {

namespace {

constexpr std::size_t megabyte = 1U << 20U;

enum class Lines { one, many };

std::string megabyteOfText(Lines lines)
{
    std::string text;
    text.reserve(megabyte + 100);
    while (text.size() < megabyte)
        text += lines == Lines::many ? "The quick brown fox jumps over the lazy dog.\n"
                                     : "The quick brown fox jumps over the lazy dog. ";
    return text;
}

/// A window in memory with a text in a scroll view, or a field, that has the keyboard.
class Desk {
public:
    explicit Desk(Lines lines)
    {
        installHost(std::make_unique<HeadlessHost>());
        window = make<NSWindow>(Rect { 0, 0, 600, 400 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
        if (lines == Lines::one) {
            auto const field = make<NSTextField>(Rect { 10, 10, 300, 22 });
            field->cell()->setScrollable(true);
            window->contentView()->addSubview(*field);
            window->makeKeyAndOrderFront(nullptr);
            window->makeFirstResponder(field.get());
            view = dynamic_cast<NSTextView*>(field->currentEditor());
        } else {
            auto const scroll = make<NSScrollView>(Rect { 0, 0, 600, 400 });
            auto const text = make<NSTextView>(Rect { 0, 0, 580, 400 });
            text->setAllowsUndo(true);
            scroll->setDocumentView(text);
            window->contentView()->addSubview(*scroll);
            window->makeKeyAndOrderFront(nullptr);
            window->makeFirstResponder(text.get());
            view = text;
        }
        auto& pasteboard = NSPasteboard::generalPasteboard();
        pasteboard.declareTypes({ NSStringPboardType });
        pasteboard.setString(megabyteOfText(lines), NSStringPboardType);
    }
    ~Desk()
    {
        window->makeFirstResponder(nullptr);
        window->close();
        view = nullptr;
        window = nullptr;
        NSApp = nullptr;
        installHost(nullptr);
    }
    Desk(Desk const&) = delete;
    Desk& operator=(Desk const&) = delete;

    void empty() const
    {
        view->setString({});
        window->displayIfNeeded();
    }
    void paste() const
    {
        view->paste(nullptr);
        window->displayIfNeeded();
    }
    void type(long at) const
    {
        view->setSelectedRange({ at, 0 });
        view->insertText("x");
        window->displayIfNeeded();
    }

    Ref<NSWindow> window;
    Ref<NSTextView> view;
};

}

PLIX_FIGURE("text.insert_1mb")
{
    Desk const desk(Lines::many);
    figure.time({ [&] { desk.paste(); }, [&] { desk.empty(); } });
}

PLIX_FIGURE("text.type_in_1mb")
{
    Desk const desk(Lines::many);
    desk.paste();
    figure.time({ [&] { desk.type(static_cast<long>(megabyte) / 2); } });
}

PLIX_FIGURE("text.insert_1mb_line")
{
    Desk const desk(Lines::one);
    figure.time({ [&] { desk.paste(); }, [&] { desk.empty(); } });
}

PLIX_FIGURE("text.type_in_1mb_line")
{
    Desk const desk(Lines::one);
    desk.paste();
    figure.time({ [&] { desk.type(static_cast<long>(megabyte) / 2); } });
}

}
