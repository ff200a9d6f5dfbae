// The remote-configuration library, "vantoronlineconfig.dll". Settings:
//   create=null             "create_config" fails
//   init=0                  "init_config" reports a failure
//   environment=PREFIX      answers only under this filter environment
//   string.KEY=TEXT         the text of a key; KEY with a suffix is KEY__SUFFIX, * any key
//   bool.KEY=1              the switch of a key
//   length.KEY=NUMBER       what the sizing call of this key answers, whatever its text is
//   fill.KEY=none           the fetching call of this key leaves the buffer unchanged; bare: it
//                           writes the text without its NUL; all: it fills the buffer with x
// Journal: load (pid); create_config (result); init_config (mode); set_filter_environment (prefix);
// get_bool_value (key, suffix, before), get_string_value (key, suffix, buffer, size, result);
// release_config (object=own|other); unexpected (position in the object's table). A null text is
// (null).

#include "services/config/config_contract.h"
#include "testkit/fakes/export.h"
#include "testkit/fakes/fake.h"
#include "testkit/fakes/library_load.h"
#include "testkit/os/os.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

// Set once while the library loads and never destroyed: the library is not unloaded.
fake::Fake *library = nullptr;
std::string *environment = nullptr;

std::string_view Shown(const char *text)
{
    return text != nullptr ? text : "(null)";
}

// The setting of a key, `kind.KEY`, when the library may answer at all.
std::optional<std::string> Setting(const char *kind, const char *key, const char *suffix)
{
    const std::string expected = library->Text("environment", *environment);
    if (key == nullptr || suffix == nullptr || expected != *environment) {
        return std::nullopt;
    }
    const std::string name = std::string(kind) + '.';
    const std::string end = *suffix != '\0' ? std::string("__") + suffix : std::string();
    std::vector<std::string> values = library->All(name + key + end);
    if (values.empty()) {
        values = library->All(name + '*');
    }
    return values.empty() ? std::nullopt : std::optional(values.back());
}

// What the program does not call.
template<int kPosition> void Unexpected()
{
    library->Note("unexpected", {fake::Field("position", kPosition)});
}

bool InitConfig(VantorConfig * /*self*/, int mode)
{
    library->Note("init_config", {fake::Field("mode", mode)});
    return library->Number("init", 1) != 0;
}

void SetFilterEnvironment(VantorConfig * /*self*/, const char *prefix)
{
    library->Note("set_filter_environment", {fake::Field("prefix", Shown(prefix))});
    *environment = prefix != nullptr ? prefix : "";
}

bool GetBoolValue(VantorConfig * /*self*/, const char *key, bool *value, const char *suffix)
{
    library->Note("get_bool_value",
                  {fake::Field("key", Shown(key)),
                   fake::Field("suffix", Shown(suffix)),
                   fake::Field("before", *value ? 1 : 0)});
    if (const auto set = Setting("bool", key, suffix)) {
        *value = *set == "1";
    }
    return false; // no client may rely on it
}

std::int32_t Answer(const char *key, char *buffer, std::uint32_t size, const char *suffix)
{
    constexpr std::int32_t kNoValue = -1;
    const std::optional<std::string> text = Setting("string", key, suffix);
    if (buffer == nullptr) {
        if (const auto lie = Setting("length", key, suffix)) {
            return static_cast<std::int32_t>(std::stol(*lie));
        }
        return text ? static_cast<std::int32_t>(text->size()) : kNoValue;
    }
    const std::string fill = Setting("fill", key, suffix).value_or("");
    if (fill == "all") {
        std::memset(buffer, 'x', size);
    } else if (text && fill == "bare") {
        std::memcpy(buffer, text->data(), std::min<std::size_t>(text->size(), size));
    } else if (text && fill != "none" && size != 0) {
        // Write the text and its terminator only: the buffer may have two gigabytes.
        const std::size_t count = std::min<std::size_t>(text->size(), size - 1);
        std::memcpy(buffer, text->data(), count);
        buffer[count] = '\0';
    }
    return text ? static_cast<std::int32_t>(text->size()) : kNoValue;
}

std::int32_t GetStringValue(
    VantorConfig * /*self*/, const char *key, char *buffer, std::uint32_t size, const char *suffix)
{
    const std::int32_t result = Answer(key, buffer, size, suffix);
    library->Note("get_string_value",
                  {fake::Field("key", Shown(key)),
                   fake::Field("suffix", Shown(suffix)),
                   fake::Field("buffer", buffer != nullptr ? "given" : "null"),
                   fake::Field("size", static_cast<long long>(size)),
                   fake::Field("result", result)});
    return result;
}

const VantorConfigTable kTable = {Unexpected<0>,
                                  InitConfig,
                                  Unexpected<2>,
                                  SetFilterEnvironment,
                                  Unexpected<4>,
                                  Unexpected<5>,
                                  GetBoolValue,
                                  Unexpected<7>,
                                  Unexpected<8>,
                                  GetStringValue};
VantorConfig object = {&kTable};

} // namespace

void fake::OnLoad(const std::filesystem::path &self)
{
    library = new fake::Fake(self);
    environment = new std::string;
    library->Note("load", {fake::Field("pid", os::OwnProcessId())});
}

extern "C" {

FAKE_EXPORT fake::Fake *FakeOf()
{
    return library;
}

FAKE_EXPORT VantorConfig *create_config()
{
    const bool fails = library->Text("create") == "null";
    library->Note("create_config", {fake::Field("result", fails ? "null" : "object")});
    return fails ? nullptr : &object;
}

FAKE_EXPORT void release_config(VantorConfig **config)
{
    library->Note("release_config", {fake::Field("object", *config == &object ? "own" : "other")});
    *config = nullptr;
}

} // extern "C"
