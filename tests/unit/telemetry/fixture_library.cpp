// A library with the sixteen exports of the telemetry library, or without the one that LACKS_<name>
// takes away. It records its calls; the test that loaded it reads them through the Fixture
// functions.

#include "services/telemetry/telemetry_contract.h"

#include <atomic>
#include <chrono>
#include <cstdarg>
#include <cstring>
#include <mutex>
#include <string>
#include <thread>

namespace {

std::mutex callsLock;
std::string calls;
std::atomic<int> inside{0};
std::atomic<int> overlaps{0};
std::atomic<bool> held{false};

// The end marker is 8-bit and the texts are wide: no text equals its bytes. Spelt out, as the
// library itself does.
bool IsEnd(const void *item)
{
    return std::strcmp(static_cast<const char *>(item),
                       "SKYREL_{5E0A7C21-3B94-4D6F-8A12-C7E94B3D2F60}") == 0;
}

std::string Narrow(const void *item)
{
    std::string text;
    for (const auto *at = static_cast<const SkyrelChar *>(item); *at != 0; ++at) {
        text += static_cast<char>(*at);
    }
    return text;
}

} // namespace

extern "C" {

// What was called so far: a line a call, with the number of its arguments and its texts.
const char *FixtureCalls();
const char *FixtureCalls()
{
    return calls.c_str();
}

// How often a call came while another was inside.
int FixtureOverlaps();
int FixtureOverlaps()
{
    return overlaps;
}

// Whether calls stay inside until they are let go.
void FixtureHold(bool hold);
void FixtureHold(bool hold)
{
    held = hold;
}

// Whether a call is inside.
bool FixtureIsInside();
bool FixtureIsInside()
{
    return inside != 0;
}

#ifdef LACKS_SkyrelSendInfo
#define SkyrelSendInfo FixtureUnnamedSend
#endif
int SkyrelSendInfo(
    uint8_t flag, uint8_t wide, const SkyrelChar *name, const SkyrelChar *value, ...);
int SkyrelSendInfo(uint8_t flag, uint8_t wide, const SkyrelChar *name, const SkyrelChar *value, ...)
{
    if (inside++ != 0) {
        ++overlaps;
    }
    std::string texts = Narrow(name) + "=" + Narrow(value);
    int count = 4;
    va_list list;
    va_start(list, value);
    const void *item = va_arg(list, const void *);
    for (; !IsEnd(item); item = va_arg(list, const void *)) {
        texts += (count % 2 == 0 ? " " : "=") + Narrow(item);
        ++count;
    }
    va_end(list);
    do {
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    } while (held);
    {
        const std::lock_guard<std::mutex> guard(callsLock);
        calls += std::to_string(count + 1) + (flag != 0 ? " flag" : "") +
                 (wide != 0 ? " wide " : " narrow ") + texts + "\n";
    }
    --inside;
    return 77;
}

#define EXPORT(name)                                                                               \
    int name();                                                                                    \
    int name()                                                                                     \
    {                                                                                              \
        return 1;                                                                                  \
    }

#ifndef LACKS_SkyrelOpenSession
EXPORT(SkyrelOpenSession)
#endif
#ifndef LACKS_SkyrelCloseSession
EXPORT(SkyrelCloseSession)
#endif
#ifndef LACKS_SkyrelAddParamToSessionA
EXPORT(SkyrelAddParamToSessionA)
#endif
#ifndef LACKS_SkyrelAddParamToSessionW
EXPORT(SkyrelAddParamToSessionW)
#endif
#ifndef LACKS_SkyrelEnableUserInfoCollect
EXPORT(SkyrelEnableUserInfoCollect)
#endif
#ifndef LACKS_SkyrelInstallConfigFilePath
EXPORT(SkyrelInstallConfigFilePath)
#endif
#ifndef LACKS_SkyrelInstallInitUid
EXPORT(SkyrelInstallInitUid)
#endif
#ifndef LACKS_SkyrelUninstallStart
EXPORT(SkyrelUninstallStart)
#endif
#ifndef LACKS_SkyrelUninstallEnd
EXPORT(SkyrelUninstallEnd)
#endif
#ifndef LACKS_SkyrelIsEnableUserInfoCollect
EXPORT(SkyrelIsEnableUserInfoCollect)
#endif
#ifndef LACKS_SkyrelEndCache
EXPORT(SkyrelEndCache)
#endif
#ifndef LACKS_SkyrelGetUserUid
EXPORT(SkyrelGetUserUid)
#endif
#ifndef LACKS_SkyrelStopProcess
EXPORT(SkyrelStopProcess)
#endif
#ifndef LACKS_SkyrelGetKeyValue
EXPORT(SkyrelGetKeyValue)
#endif
#ifndef LACKS_SkyrelSetKeyValue
EXPORT(SkyrelSetKeyValue)
#endif

} // extern "C"
