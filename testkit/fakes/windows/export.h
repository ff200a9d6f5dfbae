#pragma once

/// Marks what a library of the sandbox shows to the outside.
#define FAKE_EXPORT __declspec(dllexport)
