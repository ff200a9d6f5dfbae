#include "controller/ui_utility.h"

UIUtility *UIUtility::instance()
{
    static UIUtility utility;
    return &utility;
}

// No client is built in yet, which callers treat like one that could not be created.
CVantorConfigInstance *UIUtility::configInstance()
{
    return nullptr;
}
