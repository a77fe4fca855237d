#pragma once

namespace plix {

/// True on the thread that made the first object. Objects live on that thread alone.
bool isMainThread();

}
