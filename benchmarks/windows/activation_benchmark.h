// What it costs to create, activate and destroy a control, against the bare windows that it is made of.
#pragma once

#include "container/server_context.h"

// Prints one line. Needs a thread that has initialised OLE.
void measureActivation(const obk::container::ServerContext& server);
