#include "controller/reason_list.h"

#include <algorithm>
#include <random>

QVariantList ShuffledReasons()
{
    QVariantList reasons = {1, 2, 3};
    std::mt19937_64 generator(std::random_device{}());
    std::shuffle(reasons.begin(), reasons.end(), generator);
    return reasons << 4; // other reasons
}
