#pragma once

/// Takes the lock of the one running instance. True when another instance has it, also one whose
/// lock may not be opened; this process holds nothing then. A lock that cannot be taken for any
/// other reason counts as "no other instance". Main thread.
bool CheckAlreadyRunning();

/// Gives the lock up. No effect when this process does not hold it. Main thread.
void ReleaseInstanceMutex();
