// Objects of the system or of a host that are handed through and never looked into.
#pragma once

#include <memory>

namespace obk {

// What stands behind it is known to the platform that made it and to the server.
class OpaqueObject {
public:
    virtual ~OpaqueObject() = default;
};

// Null means "no object".
using ObjectRef = std::shared_ptr<OpaqueObject>;

}  // namespace obk
