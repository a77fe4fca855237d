#pragma once

#include <functional>
#include <string>

namespace plix::bench {

/// Fits the fourth of a table's columns to all its rows, in another library. What it answers is timed.
std::function<void()> qtAutosize(long rows, std::string (*textOfRow)(long));

}
