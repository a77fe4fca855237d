#pragma once

namespace plix {

class NSDraggingInfo;

enum NSDragOperation : unsigned {
    NSDragOperationNone = 0,
    NSDragOperationCopy = 1,
    NSDragOperationLink = 2,
    NSDragOperationGeneric = 4,
    NSDragOperationPrivate = 8,
    NSDragOperationMove = 16,
    NSDragOperationDelete = 32,
    NSDragOperationEvery = 0xFFFFFFFFU,
};

}
