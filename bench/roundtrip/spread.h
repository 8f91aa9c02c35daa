// The spread of timed samples: how many, their mean, the median and the 10th, 90th and 99th percentiles. A sum of
// many samples (an export's calls) is expected to come to their count times the mean, which a long tail pulls
// above the median.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace ostrel::roundtrip {

struct Spread {
  size_t count = 0;
  double mean = 0;
  double median = 0;
  double p10 = 0;
  double p90 = 0;
  double p99 = 0;
};

// The mean and the nearest-rank percentiles of the samples (in any order); all zero for none.
Spread SpreadOf(std::vector<double> samples);

// A duration in microseconds as the README's tables print it: "0.84 us", "61.3 us", "412 us", "1.27 ms", "638 ms",
// "3.80 s".
std::string FormatMicroseconds(double microseconds);

}  // namespace ostrel::roundtrip
