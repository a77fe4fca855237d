#pragma once

#include <string>

namespace plix::bench {

#ifdef PLIX_BENCH_QT
/// Seconds from opening the folder until another library's view of it has drawn the first rows.
double openFolderInQt(std::string const& path);
#endif

}
