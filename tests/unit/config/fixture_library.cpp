// The remote-configuration library as a test wants it: see FixtureState.

#include "services/config/config_contract.h"
#include "tests/unit/config/fixture_state.h"

#include <algorithm>
#include <cstring>

namespace {

FixtureState state;

std::string Shown(const char *text)
{
    return text != nullptr ? text : "(null)";
}

std::string KeyOf(const char *key, const char *suffix)
{
    return *suffix != '\0' ? std::string(key) + "|" + suffix : std::string(key);
}

template<int kPosition> void Unexpected()
{
    state.calls.push_back("unexpected " + std::to_string(kPosition));
}

bool InitConfig(VantorConfig * /*config*/, int mode)
{
    state.calls.push_back("init " + std::to_string(mode));
    return state.initResult;
}

void SetFilterEnvironment(VantorConfig * /*config*/, const char *prefix)
{
    state.calls.push_back("environment " + Shown(prefix));
}

bool GetBoolValue(VantorConfig * /*config*/, const char *key, bool *value, const char *suffix)
{
    state.calls.push_back("bool " + Shown(key) + "|" + Shown(suffix) + " " +
                          (*value ? "true" : "false"));
    const auto found = state.switches.find(KeyOf(key, suffix));
    if (found != state.switches.end()) {
        *value = found->second;
    }
    return false;
}

std::int32_t GetStringValue(VantorConfig * /*config*/,
                            const char *key,
                            char *buffer,
                            std::uint32_t size,
                            const char *suffix)
{
    state.calls.push_back("text " + Shown(key) + "|" + Shown(suffix) + " " +
                          (buffer != nullptr ? "fetch " : "size ") + std::to_string(size));
    const std::string name = KeyOf(key, suffix);
    const auto text = state.texts.find(name);
    if (buffer == nullptr) {
        const auto length = state.lengths.find(name);
        if (length != state.lengths.end()) {
            return length->second;
        }
        return text != state.texts.end() ? static_cast<std::int32_t>(text->second.size())
                                         : VANTOR_NO_VALUE;
    }
    if (state.overfilled.count(name) != 0) {
        std::memset(buffer, 'x', size);
    } else if (text != state.texts.end() && state.unfilled.count(name) == 0) {
        // Not a byte more than the text and its zero: what is offered may be two gigabytes.
        const std::size_t zero = state.unterminated.count(name) == 0 ? 1 : 0;
        const std::size_t length = std::min<std::size_t>(text->second.size() + zero, size);
        std::memcpy(buffer, text->second.c_str(), length);
    }
    return 0;
}

const VantorConfigTable table = {Unexpected<0>,
                                 InitConfig,
                                 Unexpected<2>,
                                 SetFilterEnvironment,
                                 Unexpected<4>,
                                 Unexpected<5>,
                                 GetBoolValue,
                                 Unexpected<7>,
                                 Unexpected<8>,
                                 GetStringValue};
VantorConfig object = {&table};

} // namespace

extern "C" {

FixtureState *FixtureStateOf();
FixtureState *FixtureStateOf()
{
    return &state;
}

#ifndef LACKS_CREATE
VantorConfig *create_config();
VantorConfig *create_config()
{
    state.calls.emplace_back("create");
    return state.createFails ? nullptr : &object;
}
#endif

#ifndef LACKS_RELEASE
void release_config(VantorConfig **config);
void release_config(VantorConfig **config)
{
    state.calls.emplace_back(*config == &object ? "release the object" : "release something");
    *config = nullptr;
}
#endif

} // extern "C"
