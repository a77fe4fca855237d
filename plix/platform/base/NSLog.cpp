#include <plix/platform/base/NSLog.h>

#include <cstdio>
#include <string>
#include <utility>

namespace plix {

namespace {

LogSink& sink()
{
    static auto* const s_sink = new LogSink;
    return *s_sink;
}

}

void NSLog(std::string_view line)
{
    if (sink()) {
        sink()(line);
        return;
    }
    std::string const whole = std::string(line) + "\n";
    std::fwrite(whole.data(), 1, whole.size(), stderr);
}

LogSink installLogSink(LogSink installed)
{
    return std::exchange(sink(), std::move(installed));
}

}
