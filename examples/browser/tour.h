#pragma once

namespace plix {

class HeadlessHost;

}

namespace browser {

class BrowserController;

/// Plays a person who scrolls, selects and opens a folder, where there is no display to do that at. Writes what is seen on the way
/// to out/ and prints where; then the application ends.
void playTour(plix::HeadlessHost&, BrowserController&);

}
