#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <type_traits>
#include <utility>
#include <vector>

namespace soak {

/// What is left of a row that fails when nothing can be left out any more without its passing: parts are left out, halves at first,
/// then ever smaller ones (delta debugging).
template <typename T>
std::vector<T> shrunk(std::vector<T> row, std::type_identity_t<std::function<bool(std::vector<T> const&)>> const& fails)
{
    for (std::size_t part = row.size() / 2; part > 0; part /= 2) {
        bool isSmaller = true;
        while (isSmaller) {
            isSmaller = false;
            for (std::size_t place = 0; place < row.size();) {
                auto fewer = row;
                auto const from = fewer.begin() + static_cast<std::ptrdiff_t>(place);
                fewer.erase(from, from + static_cast<std::ptrdiff_t>(std::min(part, fewer.size() - place)));
                if (fails(fewer)) {
                    row = std::move(fewer);
                    isSmaller = part == 1;
                } else {
                    place += part;
                }
            }
        }
    }
    return row;
}

}
