// JSON reader and writer throughput on a synthetic document of about 5 MB, against a plain
// simdjson DOM parse of the same bytes.
#include <benchmark/benchmark.h>
#include "SimdjsonBaseline.h"

#include <cstdint>
#include <string>

#include "OvikPlatform/json/JSONDocument.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace {

using ovik::JSONValue;

// A draft-like tree: many small records of numbers, texts, flags and nested lists.
JSONValue syntheticDocument(std::size_t targetBytes) {
    std::uint64_t state = 0x9E3779B97F4A7C15ull;
    auto next = [&state] {
        state ^= state << 13, state ^= state >> 7, state ^= state << 17;
        return state;
    };
    JSONValue::Array objects;
    std::size_t bytes = 0;
    for (std::int64_t i = 0; bytes < targetBytes; ++i) {
        JSONValue::Object object{
            {"id", "3F2504E0-4F89-11D3-9A0C-0305E82C" + std::to_string(1000 + i % 9000)},
            {"frame", JSONValue::Array{JSONValue::Array{double(next() % 19200) / 10, double(next() % 10800) / 10},
                                       JSONValue::Array{320.5, 180.25}}},
            {"opacity", double(next() % 1000) / 1000},
            {"rotation", double(std::int64_t(next() % 7200) - 3600) / 10},
            {"visible", (next() & 1) != 0},
            {"name", "Object " + std::to_string(i) + " – 矩形/path"},
            {"start", std::int64_t(next() % 60000000)},
            {"actions", JSONValue::Array{JSONValue::Object{{"curve", "easeInOut"},
                                                           {"duration", std::int64_t(500000)},
                                                           {"to", JSONValue::Object{{"scale", 1.25}}}}}},
        };
        JSONValue value(std::move(object));
        bytes += value.compact().size();
        objects.push_back(std::move(value));
    }
    return JSONValue(JSONValue::Object{{"objects", std::move(objects)}, {"schema", 8}});
}

const JSONValue& document() {
    static const JSONValue value = syntheticDocument(5 * 1000 * 1000);
    return value;
}

const std::string& documentText() {
    static const std::string text = document().prettyPrinted();
    return text;
}

void BaselineSimdjsonDOMParse(benchmark::State& state) { runSimdjsonParse(state, documentText()); }
BENCHMARK(BaselineSimdjsonDOMParse)->Unit(benchmark::kMillisecond);

void ReadDocument(benchmark::State& state) {
    const std::string& text = documentText();
    for (auto _ : state) benchmark::DoNotOptimize(ovik::JSONDocument::parse(text));
    state.SetBytesProcessed(std::int64_t(state.iterations() * text.size()));
}
BENCHMARK(ReadDocument)->Unit(benchmark::kMillisecond);

void ReadGenericValue(benchmark::State& state) {
    const std::string& text = documentText();
    for (auto _ : state) benchmark::DoNotOptimize(JSONValue::parse(text));
    state.SetBytesProcessed(std::int64_t(state.iterations() * text.size()));
}
BENCHMARK(ReadGenericValue)->Unit(benchmark::kMillisecond);

void WritePretty(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(ovik::JSONWriter::write(document(), {.pretty = true}));
    state.SetBytesProcessed(std::int64_t(state.iterations() * documentText().size()));
}
BENCHMARK(WritePretty)->Unit(benchmark::kMillisecond);

void WriteCompactEscapingSlashes(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(ovik::JSONWriter::write(document(), {.pretty = false, .escapeSlashes = true}));
    state.SetBytesProcessed(std::int64_t(state.iterations() * documentText().size()));
}
BENCHMARK(WriteCompactEscapingSlashes)->Unit(benchmark::kMillisecond);

} // namespace
