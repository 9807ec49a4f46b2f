// Times and medians for the measures.
#pragma once

#include <algorithm>
#include <ctime>
#include <vector>

namespace pixorra {

// Seconds; CLOCK_MONOTONIC, or CLOCK_THREAD_CPUTIME_ID for what the calling thread itself has used.
inline double Now(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

inline double Median(std::vector<double> values) {
  if (values.empty()) return 0;
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// Milliseconds of the thread's own time that some work takes.
template <typename Work>
double CpuOf(const Work& work) {
  const double before = Now(CLOCK_THREAD_CPUTIME_ID);
  work();
  return (Now(CLOCK_THREAD_CPUTIME_ID) - before) * 1e3;
}

}  // namespace pixorra
