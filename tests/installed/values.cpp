#include <plix/format/csv_line.h>
#include <plix/format/file_size_text.h>
#include <plix/platform/graphics/geometry.h>

#include <cstdio>
#include <string>
#include <vector>

int main()
{
    using namespace plix;
    auto const fields = CSVLineComponents("one,\"two, three\"");
    bool const isRight = fields == std::vector<std::string> { "one", "two, three" }
        && NSIntersectionRect({ 0, 0, 10, 10 }, { 5, 5, 10, 10 }) == Rect { 5, 5, 5, 5 };
    std::printf("%s, %s\n", isRight ? "values: all is well" : "values: wrong", StringForFileSize(1500000).c_str());
    return isRight ? 0 : 1;
}
