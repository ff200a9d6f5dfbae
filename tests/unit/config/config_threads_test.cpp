#include "controller/ui_utility.h"
#include "services/config/vantor_config_instance.h"
#include "tests/unit/config/log_watch.h"

#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <thread>
#include <vector>

namespace {

// What eight threads get that ask at the same moment.
template<typename Ask> auto Seen(Ask ask)
{
    constexpr std::size_t kThreads = 8;
    std::atomic<std::size_t> waiting{0};
    std::vector<decltype(ask())> seen(kThreads);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([&waiting, &seen, &ask, i] {
            ++waiting;
            while (waiting != kThreads) {
                std::this_thread::yield();
            }
            seen[i] = ask();
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_NE(seen.front(), nullptr);
    return std::set<decltype(ask())>(seen.begin(), seen.end());
}

TEST(ConfigInstanceThreads, AllGetTheOneUtility)
{
    EXPECT_EQ(Seen([] { return UIUtility::instance(); }).size(), 1U);
}

TEST(ConfigInstanceThreads, AllGetTheOneInstance)
{
    EXPECT_EQ(Seen([] { return CVantorConfigInstance::Instance(); }).size(), 1U);
}

} // namespace
