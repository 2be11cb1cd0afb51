// Late-bound calls, straight through the member table.
#pragma once

#include "framework/control_table.h"

#include <windows.h>

#include <oaidl.h>

namespace obk::server {

// As IDispatch::GetIDsOfNames: a member's number, and the positions of a method's parameters after it.
HRESULT idsOfNames(const ControlTable& table, LPOLESTR* names, UINT count, DISPID* ids);

// As IDispatch::Invoke. Arguments of any type that converts; a method's arguments by name; those with a
// default may be left out, all others are asked for with DISP_E_PARAMNOTOPTIONAL. Only a wrong call is
// reported, never what becomes of it inside the control. The caller holds the control alive.
HRESULT invokeMember(const ControlTable& table, Control& control, DISPID id, WORD flags,
                     const DISPPARAMS& arguments, VARIANT* result, UINT* wrongArgument);

}  // namespace obk::server
