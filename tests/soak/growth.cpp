// SPDX-License-Identifier: MIT
#include "soak/growth.h"

#include <algorithm>
#include <cmath>

namespace pimloft::test {

double quantile(std::vector<double> values, double share) {
    if (values.empty())
        return 0;
    const auto place = values.begin() + std::ptrdiff_t(std::floor(share * double(values.size() - 1)));
    std::nth_element(values.begin(), place, values.end());
    return *place;
}

std::vector<Growth> growthOf(const std::vector<Holding> &samples) {
    std::vector<Growth> result;
    const std::size_t quarter = samples.size() / 4;
    for (std::size_t index = 0; index < figureNames.size(); ++index) {
        const auto median = [&](std::size_t from, std::size_t to) {
            std::vector<double> values;
            for (std::size_t each = from; each < to; ++each)
                values.push_back(samples[each].values[index]);
            return quantile(values, 0.5);
        };
        double highest = 0;
        for (const Holding &sample : samples)
            highest = std::max(highest, sample.values[index]);
        result.push_back({&figureNames[index], median(quarter, 2 * quarter),
                          median(samples.size() - quarter, samples.size()), highest});
    }
    return result;
}

}  // namespace pimloft::test
