// Late-bound calls on a control, against what the system's own automation needs for an equal dual interface.
#pragma once

#include "container/server_context.h"

// Prints a line for each figure; false when a call failed. Needs a thread that has initialised OLE.
bool measureDispatch(const obk::container::ServerContext& server);
