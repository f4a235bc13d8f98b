#pragma once

#include <cstddef>
#include <cstdint>

/// What a fuzz target does with one input: aborts when a promise is broken. Called by libFuzzer,
/// and by an ordinary test for each file of the target's corpus.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
