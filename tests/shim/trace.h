#pragma once

// The part of the shim that writes down the steps: see Shim::startTrace().

bool isTracing();
/// Adds the line of one step, where there is a trace.
void note(const char *step, const char *path);
