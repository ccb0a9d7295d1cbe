#pragma once

#include <QtGlobal>
#include <algorithm>
#include <vector>

namespace agent::speech
{

// Values that take effect at sample positions of an utterance, in the order they were added
// (the synthesiser reports them in time order).
template <typename T> class SampleTimeline
{
public:
    void add(qint64 sample, T value) { marks_.push_back({sample, value}); }

    // The value of the last mark at or before the sample, or the fallback before the first.
    T at(qint64 sample, T fallback) const
    {
        const auto next = std::upper_bound(
            marks_.begin(), marks_.end(), sample,
            [](qint64 position, const Mark& mark) { return position < mark.sample; });
        return next == marks_.begin() ? fallback : std::prev(next)->value;
    }

    bool empty() const { return marks_.empty(); }

private:
    struct Mark {
        qint64 sample;
        T value;
    };
    std::vector<Mark> marks_;
};

} // namespace agent::speech
