#pragma once

#include <HostKit/FileURL.h>
#include <HostKit/Identifier.h>

namespace tolvane {

/// One item that was moved to the Trash, enough to put it back.
struct RemovalReceipt {
    /// Fresh for each move.
    Identifier id;
    /// Where the item was, standardised.
    FileURL original;
    /// Where it lies in the Trash, as the system reported it.
    FileURL trashed;

    friend bool operator==(const RemovalReceipt&, const RemovalReceipt&) = default;
};

}
