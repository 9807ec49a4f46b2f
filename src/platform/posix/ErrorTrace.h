// For developers: a line on the standard error output for each error that the program ignores.
#pragma once

namespace pixorra {

// Begins it where the environment has PIXORRA_TRACE_ERRORS, with any value but an empty one. Called once, ahead of any
// thread.
void TraceIgnoredErrorsIfAsked();

}  // namespace pixorra
