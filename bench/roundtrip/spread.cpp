// Percentiles and the printing of durations.
#include "spread.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace ostrel::roundtrip {
namespace {

// The nearest-rank percentile of sorted samples: the smallest sample that at least p percent of them don't exceed.
double Percentile(const std::vector<double>& sorted, double p) {
  const double rank = std::ceil(p / 100.0 * static_cast<double>(sorted.size()));
  const size_t index = rank < 1 ? 0 : static_cast<size_t>(rank) - 1;
  return sorted[std::min(index, sorted.size() - 1)];
}

std::string Printed(const char* format, double value) {
  char text[64];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

}  // namespace

Spread SpreadOf(std::vector<double> samples) {
  Spread spread;
  spread.count = samples.size();
  if (samples.empty()) return spread;
  std::sort(samples.begin(), samples.end());
  double sum = 0;
  for (const double sample : samples) sum += sample;
  spread.mean = sum / static_cast<double>(samples.size());
  spread.median = Percentile(samples, 50);
  spread.p10 = Percentile(samples, 10);
  spread.p90 = Percentile(samples, 90);
  spread.p99 = Percentile(samples, 99);
  return spread;
}

std::string FormatMicroseconds(double microseconds) {
  if (microseconds < 10) return Printed("%.2f us", microseconds);
  if (microseconds < 100) return Printed("%.1f us", microseconds);
  if (microseconds < 1000) return Printed("%.0f us", microseconds);
  if (microseconds < 10000) return Printed("%.2f ms", microseconds / 1000);
  if (microseconds < 100000) return Printed("%.1f ms", microseconds / 1000);
  if (microseconds < 1000000) return Printed("%.0f ms", microseconds / 1000);
  return Printed("%.2f s", microseconds / 1000000);
}

}  // namespace ostrel::roundtrip
