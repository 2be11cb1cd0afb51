// Tells what the control is and which events it raises.
#pragma once

#include "server/part.h"

#include <ocidl.h>

namespace obk::server {

class ClassInfoPart final : public Part<IProvideClassInfo2> {
public:
    using Part::Part;

    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* id) override;
};

}  // namespace obk::server
