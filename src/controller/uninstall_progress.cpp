#include "controller/uninstall_progress.h"

int NextProgress(int value, bool uninstallerRunning)
{
    if (!uninstallerRunning) {
        return kProgressEnd;
    }
    return value == kProgressHold ? value : value + 1;
}
