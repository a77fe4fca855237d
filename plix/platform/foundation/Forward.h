#pragma once

namespace plix {

class EventSource;
class NSCalendarDate;
class NSCharacterSet;
class NSDateFormatter;
class NSFileManager;
class NSBundle;
class NSFormatter;
class NSNotificationCenter;
class NSProcessInfo;
class NSRunLoop;
class NSScanner;
class NSTimer;
class NSUserDefaults;
class RunLoopDescriptor;
class Surroundings;
struct NSNotification;

}
