// The port's check box window.
#pragma once

#include "widgets/child_peer.h"
#include "widgets/peer_client.h"

namespace obk {

class CheckBoxClient : public PeerClient {
public:
    // A person has pressed and released the box, or the blank key on it. The mark is the client's to change.
    virtual void checkPressed() = 0;

protected:
    ~CheckBoxClient() = default;
};

// The system's check box without a caption. Starts unchecked.
class CheckBoxPeer : public ChildPeer {
public:
    virtual void setChecked(bool checked) = 0;
};

}  // namespace obk
