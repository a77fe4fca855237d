#pragma once

namespace plix {

class Class;
class NSBundle;

/// The plug-in that was loaded with a class; null for the program's own classes.
NSBundle* pluginThatBrought(Class const&);

}
