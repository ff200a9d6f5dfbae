// A library with the sixteen exports of the telemetry library, or without one of them.

#define EXPORT(name)                                                                               \
    extern "C" int name();                                                                         \
    extern "C" int name()                                                                          \
    {                                                                                              \
        return 1;                                                                                  \
    }

EXPORT(SkyrelOpenSession)
EXPORT(SkyrelCloseSession)
EXPORT(SkyrelAddParamToSessionA)
EXPORT(SkyrelAddParamToSessionW)
EXPORT(SkyrelSendInfo)
EXPORT(SkyrelEnableUserInfoCollect)
EXPORT(SkyrelInstallConfigFilePath)
EXPORT(SkyrelInstallInitUid)
EXPORT(SkyrelUninstallStart)
EXPORT(SkyrelUninstallEnd)
EXPORT(SkyrelIsEnableUserInfoCollect)
EXPORT(SkyrelEndCache)
EXPORT(SkyrelGetUserUid)
EXPORT(SkyrelStopProcess)
#ifndef LACKS_GET_KEY_VALUE
EXPORT(SkyrelGetKeyValue)
#endif
EXPORT(SkyrelSetKeyValue)
