#pragma once

/// Marks what a library of the pretend installation shows to the outside.
#define STANDIN_EXPORT __declspec(dllexport)
