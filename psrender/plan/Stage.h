#pragma once

#include "psrender/scene/DisplayList.h"

#include <utility>
#include <vector>

namespace psrender::plan {

/// Takes the items of a page one after the other, from the lowest to the topmost.
class Sink {
public:
    Sink() = default;
    Sink(const Sink&) = delete;
    Sink& operator=(const Sink&) = delete;
    virtual ~Sink() = default;

    virtual void take(scene::Item item) = 0;
    /// After the last item.
    virtual void finish() {}
};

/// The end of a row of stages: keeps what it takes.
class Collector : public Sink {
public:
    void take(scene::Item item) override { items.push_back(std::move(item)); }

    std::vector<scene::Item> items;
};

/// One step of planning: takes something off the next sink that the back end cannot say. An item
/// of a kind that a stage does not speak of goes on as it is.
class Stage : public Sink {
public:
    /// `next` must outlive the stage.
    explicit Stage(Sink& next) : next_(next) {}

    void take(scene::Item item) final {
        std::visit([this](auto&& it) { on(std::forward<decltype(it)>(it)); }, std::move(item));
    }
    void finish() override { next_.finish(); }

protected:
    virtual void on(scene::Shape shape) { pass(std::move(shape)); }
    virtual void on(scene::Text text) { pass(std::move(text)); }
    virtual void on(scene::Picture picture) { pass(std::move(picture)); }
    virtual void on(scene::Placement placement) { pass(std::move(placement)); }
    virtual void on(scene::BeginGroup group) { pass(std::move(group)); }
    virtual void on(scene::EndGroup end) { pass(end); }

    void pass(scene::Item item) { next_.take(std::move(item)); }
    [[nodiscard]] Sink& next() const { return next_; }

private:
    Sink& next_;
};

}  // namespace psrender::plan
