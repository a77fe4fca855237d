#pragma once

#include <string>
#include <string_view>

namespace gallery {

/// The definition of a free function in a source, from its first line to its closing brace in column 0, with a line end.
/// Declarations and calls are none; "" where it is not there or does not end. The name is the whole of it, without arguments.
std::string functionText(std::string_view source, std::string_view name);
/// What makes the page of that name: makeNSScannerPage of NSScanner, makeImageViewsPage of image_views.
std::string functionName(std::string_view pageName);

}
