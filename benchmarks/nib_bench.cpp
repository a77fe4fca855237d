#include "bench.h"
#include "headless_machine.h"
#include "nib_peer.h"

#include <plix/library_classes.h>
#include <plix/platform/appkit/NSNib.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/base/NSData.h>
#include <plix/windows/PLIXProgressWindowNIBLoader.h>

#include <string>
#include <string_view>
#include <vector>

namespace plix::bench {

/// What an alert is to its interface file, without what it does with it.
class AlertOwner : public NSObject {
    PLIX_CLASS(AlertOwner, NSObject);

public:
    void take(Ref<NSObject> const& part) { m_parts.push_back(part); }
    void press(NSObject*) { }

private:
    std::vector<Ref<NSObject>> m_parts;
};

PLIX_DESCRIBE(AlertOwner)
{
    for (auto const* name : { "window", "iconView", "statementField", "messageField", "button1", "button2", "button3" })
        description.outlet(name, &AlertOwner::take);
    description.action("button:", &AlertOwner::press).bundle("plix");
}

namespace {

constexpr int groupCount = 20;
constexpr int viewsInGroup = 99; // with the group itself 2,000 views
constexpr int width = 1000;
constexpr int height = 800;

std::vector<NibGroup> manyViews()
{
    std::vector<NibGroup> groups;
    for (int i = 0; i < groupCount; ++i) {
        NibGroup group;
        for (int j = 0; j < viewsInGroup; ++j)
            group.push_back({ static_cast<NibViewKind>(j % 4), "View " + std::to_string(i * viewsInGroup + j), j % 9 * 110,
                j / 9 * 30, 100, 22 });
        groups.push_back(std::move(group));
    }
    return groups;
}

std::string frame(float x, float y, float w, float h)
{
    return "<rect key=\"frame\" x=\"" + std::to_string(x) + "\" y=\"" + std::to_string(y) + "\" width=\"" + std::to_string(w)
        + "\" height=\"" + std::to_string(h)
        + "\"/>\n<autoresizingMask key=\"autoresizingMask\" flexibleMaxX=\"YES\" flexibleMinY=\"YES\"/>\n";
}

constexpr std::string_view systemFont = "<font key=\"font\" metaFont=\"system\"/>\n";

std::string cellOf(NibSample const& sample, std::string const& id)
{
    auto const head = [&](std::string_view element, std::string_view attributes) {
        return "<" + std::string(element) + " key=\"cell\" " + std::string(attributes) + " title=\"" + sample.text + "\" id=\"" + id
            + "\">\n" + std::string(systemFont);
    };
    switch (sample.kind) {
    case NibViewKind::Label:
        return head("textFieldCell", R"(lineBreakMode="clipping" sendsActionOnEndEditing="YES")")
            + R"(<color key="textColor" name="controlTextColor" catalog="System" colorSpace="catalog"/></textFieldCell>)";
    case NibViewKind::Field:
        return head("textFieldCell",
                   R"(scrollable="YES" lineBreakMode="clipping" selectable="YES" editable="YES" borderStyle="bezel" drawsBackground="YES")")
            + R"(<color key="backgroundColor" name="textBackgroundColor" catalog="System" colorSpace="catalog"/></textFieldCell>)";
    case NibViewKind::Button:
        return head("buttonCell", R"(type="push" bezelStyle="rounded" alignment="center" borderStyle="border")")
            + R"(<behavior key="behavior" pushIn="YES" lightByBackground="YES" lightByGray="YES"/></buttonCell>)";
    case NibViewKind::CheckBox:
        return head("buttonCell", R"(type="check" bezelStyle="regularSquare" imagePosition="left" state="on")")
            + R"(<behavior key="behavior" changeContents="YES" doesNotDimImage="YES" lightByContents="YES"/></buttonCell>)";
    }
    return {};
}

std::string viewOf(NibSample const& sample, std::string const& id)
{
    bool const isField = sample.kind == NibViewKind::Label || sample.kind == NibViewKind::Field;
    std::string const element = isField ? "textField" : "button";
    return "<" + element + " verticalHuggingPriority=\"750\" id=\"" + id + "\">\n"
        + frame(static_cast<float>(sample.x), static_cast<float>(height - sample.y - sample.height),
            static_cast<float>(sample.width), static_cast<float>(sample.height))
        + cellOf(sample, id + "-cell") + "\n</" + element + ">\n";
}

Ref<NSData> largeDocument(std::vector<NibGroup> const& groups)
{
    std::string text = R"(<?xml version="1.0" encoding="UTF-8"?>
<document type="com.apple.InterfaceBuilder3.Cocoa.XIB" version="3.0" targetRuntime="MacOSX.Cocoa">
<objects><customView id="form">)"
        + frame(0, 0, width, height) + "<subviews>\n";
    int number = 0;
    for (auto const& group : groups) {
        text += "<customView id=\"g" + std::to_string(number) + "\">\n" + frame(0, 0, width, height) + "<subviews>\n";
        for (auto const& sample : group)
            text += viewOf(sample, "v" + std::to_string(number++));
        text += "</subviews></customView>\n";
    }
    text += "</subviews></customView></objects></document>\n";
    return make<NSData>(std::vector<std::uint8_t>(text.begin(), text.end()));
}

int countViews(NSView const& view)
{
    int count = 1;
    for (auto const& subview : view.subviews())
        count += countViews(*subview);
    return count;
}

std::vector<Ref<NSObject>> loadedFrom(NSData const& document)
{
    std::vector<Ref<NSObject>> objects;
    if (auto const nib = make<NSNib>(document, nullptr))
        nib->instantiateNibWithOwner(nullptr, &objects);
    return objects;
}

}

PLIX_FIGURE("nib.load_large")
{
    Machine const machine;
    NSApplication::sharedApplication();
    auto const groups = manyViews();
    auto const document = largeDocument(groups);
    auto const made = loadedFrom(*document);
    auto const form = made.empty() ? nullptr : as<NSView>(made.front());
    int const views = form ? countViews(*form) : 0;
    if (views != 1 + groupCount * (1 + viewsInGroup)) {
        figure.skip("only " + std::to_string(views) + " views are made");
        return;
    }
    auto const ours = [&] { loadedFrom(*document); };
#ifdef PLIX_BENCH_QT_UITOOLS
    auto const peer = qtNib(width, height, groups);
    if (peer.madeViews != views) {
        figure.skip("Qt makes " + std::to_string(peer.madeViews) + " views, we " + std::to_string(views));
        return;
    }
    figure.timeAgainst("QUiLoader", { ours }, { peer.load });
#else
    figure.time({ ours });
#endif
}

PLIX_FIGURE("nib.load_alert")
{
    Machine const machine;
    NSApplication::sharedApplication();
    registerLibraryClasses();
    if (!loadNibNamed("Alert", make<AlertOwner>().get())) {
        figure.skip("the file is not there");
        return;
    }
    figure.time({ [] { loadNibNamed("Alert", make<AlertOwner>().get()); } });
}

PLIX_FIGURE("nib.load_progress")
{
    Machine const machine;
    NSApplication::sharedApplication();
    registerLibraryClasses();
    if (!loadNibNamed("ProgressWindow", make<PLIXProgressWindowNIBLoader>().get())) {
        figure.skip("the file is not there");
        return;
    }
    figure.time({ [] { loadNibNamed("ProgressWindow", make<PLIXProgressWindowNIBLoader>().get()); } });
}

}
