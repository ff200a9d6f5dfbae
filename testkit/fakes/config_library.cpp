// The remote-configuration library, "vantoronlineconfig.dll". Settings:
//   create=null             "create_config" fails
//   init=0                  "init_config" reports a failure
//   environment=PREFIX      answers only under this filter environment
//   string.KEY=TEXT         the text of a key; KEY with a suffix is KEY__SUFFIX
//   bool.KEY=1              the switch of a key
//   length.KEY=NUMBER       what the sizing call of this key answers, whatever its text is
//   fill.KEY=none           the fetching call of this key leaves the buffer as it is
// Journal: load (pid); create_config (result); init_config (mode); set_filter_environment (prefix);
// get_bool_value, get_string_value (key, suffix, and for texts buffer, size, result);
// release_config; unexpected (name, or position in the object's table). A null text is (null).

#include "testkit/fakes/export.h"
#include "testkit/fakes/host.h"
#include "testkit/fakes/library_load.h"
#include "testkit/fakes/fake.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

// Set once while the library loads and never destroyed: the library is not unloaded.
const fake::Fake *library = nullptr;
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
    std::string name = std::string(kind) + '.' + key;
    if (*suffix != '\0') {
        name += std::string("__") + suffix;
    }
    const std::vector<std::string> values = library->All(name);
    return values.empty() ? std::nullopt : std::optional(values.back());
}

// The object: its first word points to the table, as the program expects it. What the program does
// not call notes that it was called.
struct Object
{
    const void *const *table;
};

template<int kPosition> void Unexpected()
{
    library->Note("unexpected", {fake::Field("position", kPosition)});
}

bool InitConfig(Object * /*self*/, int mode)
{
    library->Note("init_config", {fake::Field("mode", mode)});
    return library->Number("init", 1) != 0;
}

void SetFilterEnvironment(Object * /*self*/, const char *prefix)
{
    library->Note("set_filter_environment", {fake::Field("prefix", Shown(prefix))});
    *environment = prefix != nullptr ? prefix : "";
}

bool GetBoolValue(Object * /*self*/, const char *key, bool *value, const char *suffix)
{
    const std::optional<std::string> set = Setting("bool", key, suffix);
    if (set) {
        *value = *set == "1";
    }
    library->Note("get_bool_value",
                  {fake::Field("key", Shown(key)), fake::Field("suffix", Shown(suffix))});
    return set.has_value();
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
    if (!text || size == 0) {
        return kNoValue;
    }
    if (Setting("fill", key, suffix) != "none") {
        const std::size_t count = std::min<std::size_t>(text->size(), size - 1);
        std::memcpy(buffer, text->data(), count);
        buffer[count] = '\0';
    }
    return static_cast<std::int32_t>(text->size());
}

std::int32_t GetStringValue(
    Object * /*self*/, const char *key, char *buffer, std::uint32_t size, const char *suffix)
{
    const std::int32_t result = Answer(key, buffer, size, suffix);
    library->Note("get_string_value",
                  {fake::Field("key", Shown(key)),
                   fake::Field("suffix", Shown(suffix)),
                   fake::Field("buffer", std::string_view(buffer != nullptr ? "given" : "null")),
                   fake::Field("size", static_cast<long long>(size)),
                   fake::Field("result", result)});
    return result;
}

template<typename Function> const void *Entry(Function *function)
{
    return reinterpret_cast<const void *>(function);
}

const void *const *Table()
{
    static const std::array<const void *, 12> table = {Entry(Unexpected<0>),
                                                       Entry(InitConfig),
                                                       Entry(Unexpected<2>),
                                                       Entry(SetFilterEnvironment),
                                                       Entry(Unexpected<4>),
                                                       Entry(Unexpected<5>),
                                                       Entry(GetBoolValue),
                                                       Entry(Unexpected<7>),
                                                       Entry(Unexpected<8>),
                                                       Entry(GetStringValue),
                                                       Entry(Unexpected<10>),
                                                       Entry(Unexpected<11>)};
    return table.data();
}

} // namespace

void fake::OnLoad(const std::filesystem::path &self)
{
    library = new fake::Fake(self);
    environment = new std::string;
    library->Note("load", {fake::Field("pid", host::OwnProcessId())});
}

extern "C" {

FAKE_EXPORT void *create_config()
{
    const bool fails = library->Text("create") == "null";
    library->Note("create_config",
                  {fake::Field("result", std::string_view(fails ? "null" : "object"))});
    return fails ? nullptr : new Object{Table()};
}

FAKE_EXPORT void release_config(void **config)
{
    library->Note("release_config", std::vector<std::string>());
    delete static_cast<Object *>(*config);
    *config = nullptr;
}

} // extern "C"
