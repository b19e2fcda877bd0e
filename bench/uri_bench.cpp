// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Speed of URIs beside Boost.URL and uriparser.
///
/// Names are operation/set/who. Every contestant takes the same URLs in turn, each as an object of
/// its own kind or, where text is the input, as text of its own kind; before anything is measured
/// all of them must have the same results.
#include "bench/context.h"
#include "bench/uri_texts.h"

#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/net/uri_parser.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#if ORV_BENCH_BOOST_URL
#include <boost/url.hpp>
#include <boost/version.hpp>
#endif
#if ORV_BENCH_URIPARSER
#include <uriparser/Uri.h>
#include <uriparser/UriBase.h>
#endif

namespace {

using bench::UriText;
using orv::gref;
using orv::ustring;
using orv::ustring_ref;
using orv::net::URI;
using orv::net::URIParser;

// Set by the checks; no benchmark runs if two contestants differ.
bool allAgree = true;

constexpr std::string_view BASE = "http://example.org/docs/guide/start?x=1";

std::string narrow(ustring_ref text) {
    std::string result;
    for (const orv::char16 unit : text) {
        result += static_cast<char>(unit);
    }
    return result;
}

ustring wide(std::string_view text) {
    ustring result;
    for (const char c : text) {
        result += orv::char16(c);
    }
    return result;
}

// Runs `work` on the numbers below `count` in turn.
template <typename Work>
void add(const std::string& name, std::size_t count, Work work) {
    benchmark::RegisterBenchmark(name.c_str(), [count, work](benchmark::State& state) {
        std::size_t i = 0;
        for ([[maybe_unused]] auto _ : state) {
            work(i);
            i = i + 1 < count ? i + 1 : 0;
        }
    });
}

// The same for what makes a text, which must be the text expected.
template <typename Make>
void addText(const std::string& name, const std::vector<std::string>& expected, Make make) {
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (std::string text = make(i, std::true_type()); text != expected[i]) {
            std::fprintf(stderr, "%s: \"%s\", not \"%s\"\n", name.c_str(), text.c_str(),
                         expected[i].c_str());
            allAgree = false;
            return;
        }
    }
    add(name, expected.size(), [make](std::size_t i) { make(i, std::false_type()); });
}

std::vector<gref<URI>> parsed(const std::vector<UriText>& texts) {
    std::vector<gref<URI>> list;
    for (const UriText& text : texts) {
        list.push_back(URI::create(ustring_ref(text.wide)));
    }
    return list;
}

#if ORV_BENCH_URIPARSER
// Parses and, at the end, frees.
class UriparserUri {
public:
    explicit UriparserUri(std::string_view text) {
        const char* end = nullptr;
        good_ = uriParseSingleUriExA(&uri_, text.data(), text.data() + text.size(), &end) ==
                URI_SUCCESS;
    }
    UriparserUri(const UriparserUri&) = delete;
    UriparserUri& operator=(const UriparserUri&) = delete;
    ~UriparserUri() { uriFreeUriMembersA(&uri_); }

    bool good() const { return good_; }
    UriUriA& get() { return uri_; }

private:
    UriUriA uri_{};
    bool good_ = false;
};

std::string textOf(const UriUriA& uri) {
    int size = 0;
    uriToStringCharsRequiredA(&uri, &size);
    std::string text(static_cast<std::size_t>(size) + 1, '\0');
    uriToStringA(text.data(), &uri, size + 1, nullptr);
    text.pop_back();
    return text;
}
#endif

void addParsing(const bench::UriSet& set) {
    const auto& texts = set.texts;
    const auto name = [&set](const char* who) { return "parse/" + set.name + '/' + who; };
    for (const UriText& text : texts) {
        bool good = static_cast<bool>(URI::tryCreate(ustring_ref(text.wide)));
#if ORV_BENCH_BOOST_URL
        good = good && boost::urls::parse_uri_reference(text.narrow).has_value();
#endif
#if ORV_BENCH_URIPARSER
        good = good && UriparserUri(text.narrow).good();
#endif
        if (!good) {
            std::fprintf(stderr, "not a URI for all: %s\n", text.narrow.c_str());
            allAgree = false;
            return;
        }
    }
    add(name("orvxx"), texts.size(), [&texts](std::size_t i) {
        benchmark::DoNotOptimize(URI::create(ustring_ref(texts[i].wide)));
    });
    add(name("orvxx parser"), texts.size(), [&texts](std::size_t i) {
        orv::BasicCharIterator<orv::char16> it(texts[i].wide);
        benchmark::DoNotOptimize(URIParser::parseURIReference(it, false));
    });
#if ORV_BENCH_BOOST_URL
    add(name("Boost"), texts.size(), [&texts](std::size_t i) {
        boost::urls::url url(boost::urls::parse_uri_reference(texts[i].narrow).value());
        benchmark::DoNotOptimize(url);
    });
    add(name("Boost view"), texts.size(), [&texts](std::size_t i) {
        benchmark::DoNotOptimize(boost::urls::parse_uri_reference(texts[i].narrow));
    });
#endif
#if ORV_BENCH_URIPARSER
    add(name("uriparser"), texts.size(), [&texts](std::size_t i) {
        UriparserUri uri(texts[i].narrow);
        benchmark::DoNotOptimize(uri);
    });
#endif
}

// From text to text in normal form.
void addNormalising() {
    const auto& texts = bench::untidyUris();
    const auto own = [&texts](std::size_t i) {
        orv::BasicCharIterator<orv::char16> it(texts[i].wide);
        const auto parser = URIParser::parseURIReference(it, false);
        return URIParser::normalize(texts[i].wide, parser.get(),
                                    URIParser::NORM_CASE | URIParser::NORM_PERCENT |
                                        orv::Flags(URIParser::NORM_PATH));
    };
    std::vector<std::string> expected;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        expected.push_back(narrow(own(i)));
    }
    add("normalise/text/orvxx", texts.size(),
        [own](std::size_t i) { benchmark::DoNotOptimize(own(i)); });
    static const auto objects = parsed(texts);
    add("normalise the path/object/orvxx", texts.size(),
        [](std::size_t i) { benchmark::DoNotOptimize(objects[i]->normalize()); });
#if ORV_BENCH_BOOST_URL
    addText("normalise/text/Boost", expected, [&texts](std::size_t i, auto wantsText) {
        boost::urls::url url(boost::urls::parse_uri_reference(texts[i].narrow).value());
        url.normalize();
        benchmark::DoNotOptimize(url);
        return wantsText ? std::string(url.buffer()) : std::string();
    });
    static std::vector<boost::urls::url> urls;
    for (const UriText& text : texts) {
        urls.emplace_back(text.narrow);
    }
    add("normalise the path/object/Boost", texts.size(), [](std::size_t i) {
        boost::urls::url url(urls[i]);
        benchmark::DoNotOptimize(url.normalize_path());
    });
#endif
#if ORV_BENCH_URIPARSER
    addText("normalise/text/uriparser", expected, [&texts](std::size_t i, auto) {
        UriparserUri uri(texts[i].narrow);
        uriNormalizeSyntaxA(&uri.get());
        return textOf(uri.get());
    });
#endif
}

// From a base and a reference, both parsed, to a new URI.
void addResolving() {
    static const auto base = URI::create(wide(BASE));
    static const auto references = parsed(bench::relativeReferences());
    std::vector<std::string> expected;
    for (const auto& reference : references) {
        expected.push_back(narrow(base->resolve(reference)->toString()));
    }
    add("resolve/relative/orvxx", references.size(),
        [](std::size_t i) { benchmark::DoNotOptimize(base->resolve(references[i])); });
#if ORV_BENCH_BOOST_URL
    static const boost::urls::url boostBase(std::string{BASE});
    static std::vector<boost::urls::url> urls;
    for (const UriText& text : bench::relativeReferences()) {
        urls.emplace_back(boost::urls::parse_uri_reference(text.narrow).value());
    }
    addText("resolve/relative/Boost", expected, [](std::size_t i, auto wantsText) {
        boost::urls::url url(boostBase);
        benchmark::DoNotOptimize(url.resolve(urls[i]));
        return wantsText ? std::string(url.buffer()) : std::string();
    });
#endif
#if ORV_BENCH_URIPARSER
    static UriparserUri uriparserBase(BASE);
    static std::vector<std::unique_ptr<UriparserUri>> uris;
    for (const UriText& text : bench::relativeReferences()) {
        uris.push_back(std::make_unique<UriparserUri>(text.narrow));
    }
    addText("resolve/relative/uriparser", expected, [](std::size_t i, auto wantsText) {
        UriUriA result;
        uriAddBaseUriA(&result, &uris[i]->get(), &uriparserBase.get());
        std::string text = wantsText ? textOf(result) : std::string();
        uriFreeUriMembersA(&result);
        return text;
    });
#endif
}

// Of a URL with the same one in another case.
void addComparing(const bench::UriSet& set) {
    static const auto others = bench::respelled(set.texts);
    static const auto left = parsed(set.texts);
    static const auto right = parsed(others);
    for (std::size_t i = 0; i < left.size(); ++i) {
        bool equal = left[i]->equals(right[i]) && left[i] == right[i];
#if ORV_BENCH_BOOST_URL
        equal = equal && boost::urls::parse_uri_reference(set.texts[i].narrow).value() ==
                             boost::urls::parse_uri_reference(others[i].narrow).value();
#endif
        if (!equal) {
            std::fprintf(stderr, "not equal for all: %s\n", set.texts[i].narrow.c_str());
            allAgree = false;
            return;
        }
    }
    add("equals/other case/orvxx", left.size(),
        [](std::size_t i) { benchmark::DoNotOptimize(left[i]->equals(right[i])); });
    static const auto copies = parsed(set.texts);
    add("equals/same text/orvxx", left.size(),
        [](std::size_t i) { benchmark::DoNotOptimize(left[i]->equals(copies[i])); });
    add("hash/100 units/orvxx", left.size(),
        [](std::size_t i) { benchmark::DoNotOptimize(std::hash<gref<URI>>()(left[i])); });
#if ORV_BENCH_BOOST_URL
    static std::vector<boost::urls::url> boostLeft;
    static std::vector<boost::urls::url> boostRight;
    static std::vector<boost::urls::url> boostCopies;
    for (std::size_t i = 0; i < left.size(); ++i) {
        boostLeft.emplace_back(set.texts[i].narrow);
        boostRight.emplace_back(others[i].narrow);
        boostCopies.emplace_back(set.texts[i].narrow);
    }
    add("equals/other case/Boost", left.size(),
        [](std::size_t i) { benchmark::DoNotOptimize(boostLeft[i] == boostRight[i]); });
    add("equals/same text/Boost", left.size(),
        [](std::size_t i) { benchmark::DoNotOptimize(boostLeft[i] == boostCopies[i]); });
#endif
#if ORV_BENCH_URIPARSER
    static std::vector<std::unique_ptr<UriparserUri>> uris;
    static std::vector<std::unique_ptr<UriparserUri>> sameUris;
    for (const UriText& text : set.texts) {
        uris.push_back(std::make_unique<UriparserUri>(text.narrow));
        sameUris.push_back(std::make_unique<UriparserUri>(text.narrow));
    }
    // Compares text as it stands, so there is nothing for the other case.
    add("equals/same text/uriparser", left.size(), [](std::size_t i) {
        benchmark::DoNotOptimize(uriEqualsUriA(&uris[i]->get(), &sameUris[i]->get()));
    });
#endif
    // The text alone, as a measure of what hashing costs.
    add("hash/100 units/std::string_view", left.size(), [&set](std::size_t i) {
        benchmark::DoNotOptimize(std::hash<std::string_view>()(set.texts[i].narrow));
    });
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    bench::addContext();
#if ORV_BENCH_BOOST_URL
    benchmark::AddCustomContext("Boost", BOOST_LIB_VERSION);
#endif
#if ORV_BENCH_URIPARSER
    benchmark::AddCustomContext("uriparser", URI_VER_ANSI);
#endif
    for (const bench::UriSet& set : bench::uriSets()) {
        addParsing(set);
    }
    addNormalising();
    addResolving();
    addComparing(bench::uriSets().front());
    if (!allAgree) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
