#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace plix {

/// Why a file can't be a module that is loaded into this process, "" where it may be one: files that are none, and those that were
/// cut off, which the system's loader would stumble over. `head` is the file's beginning, 64 KiB of it are enough.
std::string_view faultOfModuleFile(std::span<std::uint8_t const> head, std::uint64_t fileSize);

}
