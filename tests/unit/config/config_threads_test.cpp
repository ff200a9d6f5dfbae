#include "services/config/vantor_config_instance.h"
#include "tests/unit/config/log_watch.h"

#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <thread>
#include <vector>

namespace {

TEST(ConfigInstanceThreads, AllGetTheOneInstance)
{
    constexpr std::size_t kThreads = 8;
    std::atomic<std::size_t> waiting{0};
    std::vector<CVantorConfigInstance *> seen(kThreads);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([&waiting, &seen, i] {
            ++waiting;
            while (waiting != kThreads) {
                std::this_thread::yield();
            }
            seen[i] = CVantorConfigInstance::Instance();
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(std::set<CVantorConfigInstance *>(seen.begin(), seen.end()).size(), 1U);
    EXPECT_NE(seen.front(), nullptr);
}

} // namespace
