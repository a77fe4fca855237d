#pragma once

#include <functional>
#include <thread>

namespace plix {

/// A thread that no signal is delivered to: these are the application's own matter. Not joinable where the system gives none.
std::thread quietThread(std::function<void()>);

}
