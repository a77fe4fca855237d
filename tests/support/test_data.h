#pragma once

#include <string>
#include <string_view>

namespace plix {

/// The path of a file below tests/data.
std::string testDataPath(std::string_view name);

}
