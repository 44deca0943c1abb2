#include "psrender/base/Warnings.h"

namespace psrender {

void Warnings::add(const std::string& kind) {
    const auto [entry, isNew] = kinds_.try_emplace(kind);
    if (isNew && site_ != nullptr)
        entry->second.first = site_->place();
    ++entry->second.count;
}

void Warnings::add(const Warnings& other) {
    for (const auto& [sentence, counted] : other.kinds_) {
        const auto [entry, isNew] = kinds_.try_emplace(sentence, counted);
        if (!isNew)
            entry->second.count += counted.count;
    }
}

std::vector<Warnings::Kind> Warnings::kinds() const {
    std::vector<Kind> result;
    for (const auto& [sentence, counted] : kinds_)
        result.push_back({sentence, counted.first, counted.count});
    return result;
}

std::vector<std::string> Warnings::sentences() const {
    std::vector<std::string> result;
    for (const Kind& kind : kinds())
        result.push_back(sentenceOf(kind));
    return result;
}

std::string sentenceOf(const Warnings::Kind& kind) {
    return kind.count == 1 ? kind.sentence
                           : kind.sentence + " (" + std::to_string(kind.count) + " times)";
}

}  // namespace psrender
