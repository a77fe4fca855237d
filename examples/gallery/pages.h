#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/geometry.h>

#include <span>
#include <string>

namespace plix {

class NSBitmapImageRep;
class NSView;

}

namespace gallery {

/// One page: a view of its own size that shows a subject in all its states.
struct Page {
    char const* name; ///< a class's name, or a topic (image_views, CSV); also of the files it is dumped to
    char const* title;
    char const* section; ///< its heading in the list
    char const* source; ///< the file of this folder that makeView is in
    /// Named after the page: makeNSScannerPage() of NSScanner, makeImageViewsPage() of image_views.
    plix::Ref<plix::NSView> (*makeView)();
};

// What sections are called.
inline constexpr char welcomeSection[] = "plix";
inline constexpr char controlsSection[] = "Controls";
inline constexpr char tablesSection[] = "Tables";
inline constexpr char windowsSection[] = "Windows and panels";
inline constexpr char textSection[] = "Text";
inline constexpr char drawingSection[] = "Drawing";
inline constexpr char valuesSection[] = "Values and formats";
inline constexpr char filesSection[] = "Files and system";
inline constexpr char eventsSection[] = "Events and application";
inline constexpr char soundSection[] = "Sound and speech";
inline constexpr char statesSection[] = "All states";

/// Every page, those of a section together, in the order in which they are shown. A family's pages are listed in its own source.
std::span<Page const> pages();

/// The page drawn in a window of its own size, with that window's pixels a point.
plix::Ref<plix::NSBitmapImageRep> render(Page const&);
/// Draws pages at one and at two pixels a point, light and dark, into a folder as NAME.png, NAME@2x.png, NAME_dark.png and
/// NAME_dark@2x.png, and prints the paths. Needs the host in memory. False, with a line on standard error, where something can't be
/// written.
bool dump(std::string const& folder, std::span<Page const> = pages());

}
