#pragma once

/*
 * The interface of the telemetry library "SkyrelWrap.DLL": the names of its exports, and the type
 * of the one function that the client calls. Compiles as C and as C++. Wide texts are
 * NUL-terminated UTF-16; the caller owns them, and the library copies what it keeps.
 */

#include <stdint.h> /* NOLINT(modernize-deprecated-headers): C too */

#ifdef __cplusplus
typedef char16_t SkyrelChar; /* NOLINT(modernize-use-using): C too */
#else
typedef uint_least16_t SkyrelChar;
#endif

#define SKYREL_LIBRARY "SkyrelWrap.DLL"

/* Every export in the order of the table; the one list for resolving, checking and defining. */
#define SKYREL_EXPORTS(ENTRY)                                                                      \
    ENTRY(SkyrelOpenSession)                                                                       \
    ENTRY(SkyrelCloseSession)                                                                      \
    ENTRY(SkyrelAddParamToSessionA)                                                                \
    ENTRY(SkyrelAddParamToSessionW)                                                                \
    ENTRY(SkyrelSendInfo)                                                                          \
    ENTRY(SkyrelEnableUserInfoCollect)                                                             \
    ENTRY(SkyrelInstallConfigFilePath)                                                             \
    ENTRY(SkyrelInstallInitUid)                                                                    \
    ENTRY(SkyrelUninstallStart)                                                                    \
    ENTRY(SkyrelUninstallEnd)                                                                      \
    ENTRY(SkyrelIsEnableUserInfoCollect)                                                           \
    ENTRY(SkyrelEndCache)                                                                          \
    ENTRY(SkyrelGetUserUid)                                                                        \
    ENTRY(SkyrelStopProcess)                                                                       \
    ENTRY(SkyrelGetKeyValue)                                                                       \
    ENTRY(SkyrelSetKeyValue)

/* Ends the list of texts; 8-bit, always this text, never data. */
#define SKYREL_END_OF_LIST "SKYREL_{5E0A7C21-3B94-4D6F-8A12-C7E94B3D2F60}"

/*
 * "SkyrelSendInfo": a flag of the library's own, whether the texts that follow are wide, the send
 * type's name and value, then pairs of name and value, then SKYREL_END_OF_LIST. The result is the
 * library's.
 */
typedef int32_t (*SkyrelSendInfoFunction)(uint8_t flag, /* NOLINT(modernize-use-using): C too */
                                          uint8_t wide,
                                          const SkyrelChar *sendTypeName,
                                          const SkyrelChar *sendTypeValue,
                                          ...);
