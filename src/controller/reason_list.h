#pragma once

#include <QVariantList>

/// Codes of the reasons to show, in their order: 1 too expensive, 2 solved my problem and 3 did not
/// solve it, shuffled again at each call, then always 4, other reasons.
QVariantList ShuffledReasons();
