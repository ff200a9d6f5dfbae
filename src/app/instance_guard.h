#pragma once

/// Tries to own the single-instance mutex. True if another instance has it, or if it may not be
/// opened; this process then holds nothing. Any other failure counts as "no other instance". Main
/// thread.
bool CheckAlreadyRunning();

/// Releases the mutex. No effect if this process does not hold it. Main thread.
void ReleaseInstanceMutex();
