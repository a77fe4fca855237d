#pragma once

#include <string>
#include <vector>

namespace plix::bench {

class Figure;

/// A benchmark that PLIX_FIGURE added.
struct Registered {
    std::string name;
    void (*run)(Figure&);
};

std::vector<Registered>& registeredFigures();

}
