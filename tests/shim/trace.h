#pragma once

// The part of the shim that records the steps: see Shim::startTrace().

bool isTracing();
/// Adds the line of one step if a trace is written.
void note(const char *step, const char *path);
