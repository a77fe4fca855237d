#pragma once

#include <string>

namespace browser {

/// What a person sets for the list. Which columns it shows is kept by the table itself.
struct Preferences {
    bool showsStripes { true };
    bool showsHiddenFiles { true };
    bool showsExactSizes { false };
    bool playsSound { false }; ///< when files were copied
    std::string sound; ///< its path; empty for the beep
    bool speaks { false }; ///< names that are selected, and what came of work

    /// From the user's defaults.
    static Preferences load();
    void save() const;

    friend bool operator==(Preferences const&, Preferences const&) = default;
};

}
