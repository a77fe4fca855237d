#pragma once

#include "pages.h"

#include <span>
#include <string_view>
#include <vector>

namespace gallery {

/// The pages in whose name, title, section or words every word of a query is found, whatever its case; hyphens don't count. All for
/// a query without words.
std::vector<Page const*> pagesMatching(std::span<Page const>, std::string_view query);
/// Of those that match: the one with that name, then one whose name begins so, then one whose name has it, then the first. Null of
/// none.
Page const* bestMatch(std::vector<Page const*> const& matching, std::string_view query);
/// What people call what a page shows: "check box radio switch" of NSButton; "" for most.
std::string_view wordsOfPage(std::string_view name);

/// The page of that name; null for none.
Page const* pageNamed(std::span<Page const>, std::string_view name);
/// What the list says of a page: classes by their names, others by their titles.
std::string_view listedName(Page const&);
/// Topics are in lower case, but for abbreviations: "image_views", "CSV", "XML_path".
bool isClassPage(Page const&);

}
