#pragma once

#include <cstdio>
#include <cstdlib>

namespace tolvane::bench {

/// The main function of a measuring program: its words are what it measures, called `subject` in
/// the usage, and a number of rounds.
template <typename Measure>
int MeasureInRounds(int count, wchar_t** arguments, const char* program, const char* subject,
                    Measure measure) {
  const int rounds = count == 3 ? _wtoi(arguments[2]) : 0;
  if (rounds < 1) {
    std::fprintf(stderr, "usage: %s %s ROUNDS\n", program, subject);
    return EXIT_FAILURE;
  }
  return measure(arguments[1], rounds);
}

}  // namespace tolvane::bench
