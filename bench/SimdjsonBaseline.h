#pragma once
// The baseline of our JSON benchmarks: a plain simdjson DOM parse of the same bytes, with one
// parser kept across iterations.
#include <benchmark/benchmark.h>
#include <simdjson.h>

#include <string>

inline void runSimdjsonParse(benchmark::State& state, const std::string& text) {
    simdjson::dom::parser parser;
    for (auto _ : state) {
        simdjson::dom::element root;
        if (parser.parse(text.data(), text.size(), true).get(root)) state.SkipWithError("parse failed");
        benchmark::DoNotOptimize(root);
    }
    state.SetBytesProcessed(std::int64_t(state.iterations() * text.size()));
}
