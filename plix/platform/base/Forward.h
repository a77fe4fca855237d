#pragma once

namespace plix {

class Class;
class Clock;
class NSCoder;
class NSData;
class NSIndexSet;
class NSObject;
class ObjectValue;
class Selector;
struct NSDate;
struct NSRange;

template <typename T> class Global;
template <typename T> class Ref;
template <typename T> class Weak;

}
