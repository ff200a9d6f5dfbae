#pragma once

#include "services/telemetry/telemetry_binding.h"
#include "tests/unit/platform/support/fake_library.h"

#include <gtest/gtest.h>

using Notes = std::vector<std::string>;

/// What the fake answers to a send.
constexpr int kResult = 77;

/// A telemetry fake that answers `kResult`.
struct TelemetryFake : contract::FakeLibrary
{
    explicit TelemetryFake(const std::string &lacking = {}, const std::string &name = "complete")
        : FakeLibrary(TELEMETRY_FAKE, lacking, name)
    {
        Tell({{"result", std::to_string(kResult)}});
    }
};

/// A binding to a fake.
class TelemetryTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(binding_.LoadTelemetryLibrary(library_.Path().c_str()));
    }

    TelemetryFake library_;
    TelemetryBinding binding_;
};
