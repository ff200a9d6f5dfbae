// The telemetry library, "SkyrelWrap.DLL". On load it starts its companion process. Settings:
//   companion=none    do not start it
//   result=0          what "SkyrelSendInfo" returns
//   delay_ms=0        how long it takes
//   hold_file=FILE    when that file exists: note hold, and take as long as it exists
// Journal: load (pid); SkyrelSendInfo (pid, count, flag, wide, pairs=[name=value][name=value]) with
// the number of arguments that the call had; overlap when a call comes while another has not
// returned; unexpected (pid, name) for every other export. A null text is written as (null). A list
// without its end marker cannot be detected: the function reads on until the process crashes.

#include "services/telemetry/telemetry_contract.h"
#include "testkit/fakes/export.h"
#include "testkit/fakes/fake.h"
#include "testkit/fakes/library_load.h"
#include "testkit/os/file_lock.h"
#include "testkit/os/os.h"

#include <atomic>
#include <cstdarg>
#include <cstdint>

namespace {

constexpr const char *kEndMarker = "SKYREL_{5E0A7C21-3B94-4D6F-8A12-C7E94B3D2F60}";
constexpr const char *kCompanion = "SkyrelWrapExe.exe";

// Set once while the library loads. Never destroyed: the lock lasts as long as the process.
fake::Fake *library = nullptr;
os::FileLock *loaders = nullptr;
std::atomic<int> inside{0};

// Whether the text is the end marker. The marker is 8-bit text, the others may be UTF-16: comparing
// byte by byte stops at the first difference, at the latest at a text's terminating NUL.
bool IsEndMarker(const void *text)
{
    const auto *bytes = static_cast<const char *>(text);
    const char *marker = kEndMarker;
    for (; *marker != '\0'; ++marker, ++bytes) {
        if (*bytes != *marker) {
            return false;
        }
    }
    return *bytes == '\0';
}

std::string TextOf(const void *text, bool wide)
{
    if (text == nullptr) {
        return "(null)";
    }
    return wide ? fake::FromUtf16(static_cast<const char16_t *>(text))
                : static_cast<const char *>(text);
}

std::vector<std::string> Pairs(const std::vector<std::string> &texts)
{
    std::vector<std::string> pairs;
    for (std::size_t index = 0; index < texts.size(); index += 2) {
        const bool whole = index + 1 < texts.size();
        pairs.push_back(texts[index] + (whole ? '=' + texts[index + 1] : std::string()));
    }
    return pairs;
}

std::string PidField()
{
    return fake::Field("pid", os::OwnProcessId());
}

std::int32_t Unexpected(std::string_view name)
{
    if (library != nullptr) {
        library->Note("unexpected", {PidField(), fake::Field("name", name)});
    }
    return 0;
}

} // namespace

void fake::OnLoad(const std::filesystem::path &self)
{
    library = new fake::Fake(self);
    library->Note("load", {PidField()});
    loaders = new os::FileLock(library->StateFile("loaders.lock"));
    loaders->Take(os::FileLock::Mode::Shared);
    if (library->Text("companion") != "none") {
        os::StartDetached(library->Folder() / kCompanion);
    }
}

extern "C" {

FAKE_EXPORT fake::Fake *FakeOf()
{
    return library;
}

FAKE_EXPORT std::int32_t SkyrelSendInfo(bool flag, bool wide, const void *name, ...)
{
    std::vector<std::string> texts = {TextOf(name, wide)};
    bool ended = false;
    va_list rest;
    va_start(rest, name);
    while (!ended) {
        // clang-tidy misses va_start when it checks several files in one run.
        // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized)
        const void *item = va_arg(rest, const void *);
        ended = item != nullptr && IsEndMarker(item);
        if (!ended) {
            texts.push_back(TextOf(item, wide));
        }
    }
    va_end(rest);
    if (library == nullptr) {
        return 0;
    }
    if (inside++ != 0) {
        library->Note("overlap");
    }
    std::error_code ignored;
    if (std::filesystem::exists(library->Path("hold_file"), ignored)) {
        library->Note("hold");
    }
    library->Hold(library->Number("delay_ms", 0));
    library->Note("SkyrelSendInfo",
                  {PidField(),
                   fake::Field("count", static_cast<long long>(texts.size()) + 3),
                   fake::Field("flag", flag ? 1 : 0),
                   fake::Field("wide", wide ? 1 : 0),
                   fake::ListField("pairs", Pairs(texts))});
    --inside;
    return static_cast<std::int32_t>(library->Number("result", 0));
}

// The program resolves these but never calls them.
#define SkyrelSendInfo SkyrelUnused /* defined above */
#define FAKE_UNEXPECTED(name)                                                                      \
    FAKE_EXPORT std::int32_t name()                                                                \
    {                                                                                              \
        return Unexpected(#name);                                                                  \
    }
SKYREL_EXPORTS(FAKE_UNEXPECTED)

} // extern "C"
