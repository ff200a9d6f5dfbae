#include "controller/reason_list.h"

#include <algorithm>
#include <array>
#include <random>

QVariantList ShuffledReasons()
{
    std::array<int, 3> candidates = {1, 2, 3};
    std::mt19937_64 generator(std::random_device{}());
    std::shuffle(candidates.begin(), candidates.end(), generator);

    constexpr int kOtherReasons = 4;
    QVariantList reasons;
    for (const int code : candidates) {
        reasons.append(code);
    }
    reasons.append(kOtherReasons);
    return reasons;
}
