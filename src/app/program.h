#pragma once

/// The program from start to exit, for every kind of entry point. 0 when another instance runs;
/// otherwise it does not return but ends the process with status 0.
int RunProgram(int argc, char **argv);
