#include "controller/ui_utility.h"

#include "services/config/vantor_config_instance.h"

UIUtility *UIUtility::instance()
{
    static UIUtility utility;
    return &utility;
}

CVantorConfigInstance *UIUtility::configInstance()
{
    return CVantorConfigInstance::Instance();
}
