#pragma once

/// Exports a symbol from a library of the sandbox.
#define FAKE_EXPORT __attribute__((visibility("default")))
