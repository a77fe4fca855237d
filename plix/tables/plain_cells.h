#pragma once

namespace plix {

class NSCell;

/// Whether the cell is of a class that shows a string value as it is, in its own font on one style: then what the text looks like
/// and how wide it is can be known without the cell. Subclasses may do as they like.
bool showsPlainText(NSCell const&);

}
