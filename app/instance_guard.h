#pragma once

#include <cstdint>

/// Whether `error`, the last error of creating the lock, says that another instance has it. Codes
/// that say anything else count as "no other instance".
bool MeansAlreadyRunning(std::uint32_t error);

/// Takes the lock of the one running instance. True when another instance has it; this process
/// holds nothing then. A lock that cannot be had for any other reason counts as "no other
/// instance". Main thread.
bool CheckAlreadyRunning();

/// Gives the lock up. No effect when this process does not hold it. Main thread.
void ReleaseInstanceMutex();
