#pragma once

#include <plix/platform/graphics/geometry.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// The name of a C++ type without the namespaces, classes and functions that it is in: "Fixed<NSView>" for
/// "plix::Fixed<plix::NSView>".
std::string shortTypeName(std::string_view);

/// A view of a tree, as it is shown in a line of an outline.
struct ViewNode {
    /// The view's serial number.
    std::uint64_t id { 0 };
    /// The class, and where that is not described the nearest that is.
    std::string className;
    /// What a person would call the view by: its title or text. May be empty.
    std::string title;
    /// In the superview's coordinates.
    Rect frame;
    bool isHidden { false };
    /// From back to front.
    std::vector<ViewNode> children;

    friend bool operator==(ViewNode const&, ViewNode const&) = default;
};

/// The node of a view, and the way to it from the top; empty where it is not in the tree.
std::vector<ViewNode const*> pathToView(ViewNode const& top, std::uint64_t id);
/// `NSButton "OK"`, with long titles cut and on one line.
std::string nodeTitle(ViewNode const&);
/// "20, 30   80 x 24".
std::string frameText(Rect);

/// What is to be said of a view's cell.
struct CellFacts {
    std::string className;
    std::string value;
    int state { 0 };
    /// Empty for none.
    std::string fontName;
    float fontSize { 0 };
};

/// What is to be said of a view.
struct ViewFacts {
    std::string className;
    Rect frame;
    Rect bounds;
    /// In the content of its window.
    Rect inWindow;
    bool isHidden { false };
    bool isFlipped { false };
    bool isOpaque { false };
    /// Nothing for views that are no controls.
    std::optional<bool> isEnabled;
    bool isFirstResponder { false };
    long tag { -1 };
    std::string toolTip;
    unsigned autoresizingMask { 0 };
    /// The class and title of the next key view; empty for none.
    std::string nextKeyView;
    std::optional<CellFacts> cell;
};

/// A name and what it is for.
struct FieldRow {
    std::string name;
    std::string value;

    friend bool operator==(FieldRow const&, FieldRow const&) = default;
};

/// The lines of a table about a view.
std::vector<FieldRow> fieldRows(ViewFacts const&);
/// "Width, Min Y Margin"; "None".
std::string autoresizingText(unsigned mask);

}
