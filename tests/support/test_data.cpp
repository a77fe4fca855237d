#include <tests/support/test_data.h>

namespace plix {

std::string testDataPath(std::string_view name)
{
    return PLIX_TESTS_FOLDER "/data/" + std::string(name);
}

}
