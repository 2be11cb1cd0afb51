// The trace that hosts' developers switch on with OBKCTRLS_TRACE: a line for each thing that was left undone.
#pragma once

namespace obk::server {

// Reads the variable, once: the path of a file that lines are appended to in UTF-8, or "debugger". Without it
// nothing is ever written, and nothing listens.
void startTrace();

}  // namespace obk::server
