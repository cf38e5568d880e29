// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/LaneSort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace stats {
namespace {

/// A network sorts every input if it sorts every input of zeros and ones (Knuth, The Art of
/// Computer Programming 3, 5.3.4, theorem Z).
TEST(LaneSort, TheNetworksSortAllZerosAndOnes)
{
    for (const std::size_t count : {2U, 3U, 9U, 16U}) {
        for (unsigned bits = 0; bits < 1U << count; ++bits) {
            std::vector<unsigned> values;
            for (std::size_t i = 0; i < count; ++i)
                values.push_back(bits >> i & 1U);
            detail::mergeExchange(count, [&](std::size_t low, std::size_t high) {
                ASSERT_LT(low, high);
                ASSERT_LT(high, count);
                if (values[low] > values[high])
                    std::swap(values[low], values[high]);
            });
            ASSERT_TRUE(std::is_sorted(values.begin(), values.end())) << count << ", " << bits;
        }
    }
}

template <int n>
void expectSorted(std::uint32_t highest)
{
    std::mt19937 random(n);
    for (int repetition = 0; repetition < 500; ++repetition) {
        KeyLanes<n> keys{};
        for (auto& lanes : keys) {
            for (Key& key : lanes)
                key = lowestKey + static_cast<Key>(random() % highest);
        }
        keys[0][0] = lowestKey;
        keys[1][0] = highestKey;
        const KeyLanes<n> before = keys;
        sortKeys(keys);
        for (std::size_t lane = 0; lane < laneCount; ++lane) {
            std::vector<Key> expected;
            std::vector<Key> actual;
            for (std::size_t i = 0; i < keys.size(); ++i) {
                expected.push_back(before[i][lane]);
                actual.push_back(keys[i][lane]);
            }
            std::sort(expected.begin(), expected.end());
            ASSERT_EQ(actual, expected);
        }
    }
}

TEST(LaneSort, SortsEachLane)
{
    constexpr std::uint32_t all = highestKey - lowestKey;
    for (const std::uint32_t highest : {all, 2U, 100U}) {
        expectSorted<3>(highest);
        expectSorted<4>(highest);
        expectSorted<5>(highest);
        expectSorted<6>(highest);
    }
}

} // namespace
} // namespace stats
