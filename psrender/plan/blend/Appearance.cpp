#include "psrender/plan/blend/Appearance.h"

#include <algorithm>

namespace psrender::plan {

using scene::Point;

namespace {

constexpr std::size_t kMostWeight = 64;

/// An appearance of several layers, shown as one picture with a share of its opacity.
class GroupLayer : public Layer {
public:
    GroupLayer(Appearance content, double share) : content_(std::move(content)), share_(share) {}

    [[nodiscard]] bool isOpaque() const override { return false; }
    [[nodiscard]] Sample at(Point onPage) const override {
        Sample sample = content_.at(onPage);
        for (double& part : sample)
            part *= share_;
        return sample;
    }
    [[nodiscard]] Tint average() const override {
        const Tint whole = content_.average();
        return {whole.color, whole.alpha * share_};
    }
    [[nodiscard]] std::size_t weight() const override { return content_.weight(); }
    [[nodiscard]] LayerPtr faded(double share) const override {
        return std::make_shared<const GroupLayer>(content_, share_ * share);
    }
    [[nodiscard]] const Appearance* content() const override { return &content_; }
    [[nodiscard]] double share() const override { return share_; }

private:
    Appearance content_;
    double share_;
};

/// Stands for a layer that is neither tint nor gradient.
class ManyLayers : public Layer {
public:
    [[nodiscard]] bool isOpaque() const override { return false; }
    [[nodiscard]] Sample at(Point /*onPage*/) const override { return {}; }
    [[nodiscard]] Tint average() const override { return {{}, 0}; }
};

}  // namespace

const Layer& Appearance::single() const {
    static const ManyLayers kMany;
    return layers_.size() == 1 ? *layers_.front() : kMany;
}

bool Appearance::isClear() const {
    return std::ranges::all_of(layers_, [](const LayerPtr& layer) { return layer->isClear(); });
}

Sample Appearance::at(Point onPage) const {
    Sample seen{};
    for (const LayerPtr& layer : layers_) {
        const Sample below = layer->at(onPage);
        const double shows = 1 - seen[3];
        for (std::size_t i = 0; i < seen.size(); ++i)
            seen[i] += shows * below[i];
    }
    return seen;
}

Tint Appearance::average() const {
    Tint seen = layers_.front()->average();
    for (std::size_t i = 1; i < layers_.size(); ++i)
        seen = over(seen, layers_[i]->average());
    return seen;
}

std::optional<Appearance::Tinted> Appearance::tinted() const {
    const Layer* original = layers_.back().get();
    const Tint* tint = layers_.size() == 2 ? layers_.front()->tint() : nullptr;
    if ((original->picture() == nullptr && original->pattern() == nullptr) ||
        (layers_.size() > 1 && tint == nullptr))
        return std::nullopt;
    return Tinted{tint != nullptr ? *tint : Tint{{}, 0}, original};
}

Appearance Appearance::faded(double share) const {
    if (share >= 1)
        return *this;
    LayerPtr layer = layers_.size() == 1 ? layers_.front()->faded(share) : nullptr;
    Appearance result(layer ? std::move(layer) : std::make_shared<const GroupLayer>(*this, share));
    result.weight_ = weight_;
    return result;
}

void Appearance::addBelow(const LayerPtr& layer) {
    if (isOpaque() || layer->isClear())
        return;
    if (layers_.size() == 1 && layers_.back()->isClear()) {
        layers_ = {layer};
        weight_ = layer->weight();
        return;
    }
    if (LayerPtr both = layers_.back()->over(*layer)) {
        layers_.back() = std::move(both);
        return;
    }
    if (layers_.size() > 1 && weight_ + layer->weight() > kMostWeight && layer->tint() == nullptr) {
        addBelow(tintLayer(layer->average()));
        return;
    }
    layers_.push_back(layer);
    weight_ += layer->weight();
}

/// An opaque group that is faded over one colour looks like the group beneath a tint of it, which
/// a picture or pattern can say in its own colours.
Appearance over(const Appearance& above, const Appearance& below) {
    const Tint* ground = below.tint();
    const Appearance* content = above.single().content();
    if (ground != nullptr && ground->alpha >= 1 && content != nullptr && content->isOpaque())
        return over(Appearance(Tint{ground->color, 1 - above.single().share()}), *content);
    Appearance result = above;
    for (const LayerPtr& layer : below.layers_)
        result.addBelow(layer);
    return result;
}

bool operator==(const Appearance& a, const Appearance& b) {
    return std::ranges::equal(a.layers_, b.layers_,
                              [](const LayerPtr& x, const LayerPtr& y) { return x->equals(*y); });
}

}  // namespace psrender::plan
