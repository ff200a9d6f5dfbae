#pragma once

/// Exports a symbol from a library of the sandbox.
#define FAKE_EXPORT __declspec(dllexport)
