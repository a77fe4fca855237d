#include "write_fence.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace soak {

namespace {

constexpr std::uint64_t removal = LANDLOCK_ACCESS_FS_REMOVE_DIR | LANDLOCK_ACCESS_FS_REMOVE_FILE;
constexpr std::uint64_t making = LANDLOCK_ACCESS_FS_MAKE_CHAR | LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_MAKE_REG
    | LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO | LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM;
constexpr std::uint64_t changes = LANDLOCK_ACCESS_FS_WRITE_FILE | removal | making;

bool allow(int rules, char const* path, std::uint64_t access)
{
    int const place = ::open(path, O_PATH | O_CLOEXEC);
    if (place < 0)
        return false;
    landlock_path_beneath_attr const rule { access, place };
    bool const isAllowed = ::syscall(SYS_landlock_add_rule, rules, LANDLOCK_RULE_PATH_BENEATH, &rule, 0) == 0;
    ::close(place);
    return isAllowed;
}

}

bool fenceWrites(std::string const& folder)
{
    landlock_ruleset_attr attributes {};
    attributes.handled_access_fs = changes;
    int const rules = static_cast<int>(::syscall(SYS_landlock_create_ruleset, &attributes, sizeof attributes, 0));
    if (rules < 0)
        return false;
    bool const isFenced = allow(rules, folder.c_str(), changes) && allow(rules, "/dev/null", LANDLOCK_ACCESS_FS_WRITE_FILE)
        && ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && ::syscall(SYS_landlock_restrict_self, rules, 0) == 0;
    ::close(rules);
    return isFenced;
}

std::string folderOfRuns()
{
    return (std::filesystem::temp_directory_path() / "plix-soak").string();
}

std::string makeRunFolder()
{
    std::filesystem::create_directories(folderOfRuns());
    auto path = folderOfRuns() + "/XXXXXX";
    if (!::mkdtemp(path.data()))
        throw std::runtime_error("there is no place for temporary files");
    return path;
}

}
