// What the grid costs in a real window and through the component interface.
#pragma once

#include "container/server_context.h"

// Prints a line for each figure. Needs a thread that has initialised OLE.
void measureGrid(const obk::container::ServerContext& server);
