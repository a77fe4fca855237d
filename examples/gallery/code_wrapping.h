#pragma once

#include <string>
#include <string_view>

namespace gallery {

/// A statement or expression in lines of at most so many characters, where it has places to break at: after a blank, a comma, an
/// opening bracket or an operator, before an arrow or a dot. What is longer without such a place is cut. Further lines are set in.
std::string wrappedCode(std::string_view code, long columns);

}
