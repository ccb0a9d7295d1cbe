#include "agent/runtime/FrameSequencer.h"

#include <deque>

namespace agent::runtime::sequencer
{

namespace
{

int frameCount(const acs::Animation& animation)
{
    return static_cast<int>(animation.frames.size());
}

// The frames that normal play can go to from `index`: branch targets with a chance, and the
// following frame unless the branches together always fire.
std::vector<int> normalSuccessors(const acs::Animation& animation, int index)
{
    std::vector<int> successors;
    int total = 0;
    for (const acs::Branch& branch : animation.frames[index].branches) {
        if (branch.probability == 0)
            continue;
        successors.push_back(branch.frame);
        total += branch.probability;
    }
    if (total < 100)
        successors.push_back(index + 1);
    return successors;
}

// Breadth-first over normal play from frame 0; visits each frame once.
std::vector<int> reachableInNormalPlay(const acs::Animation& animation, bool& endReachable)
{
    const int count = frameCount(animation);
    std::vector<bool> seen(count, false);
    std::vector<int> order;
    std::deque<int> pending;
    endReachable = count == 0;
    if (count > 0) {
        pending.push_back(0);
        seen[0] = true;
    }
    while (!pending.empty()) {
        const int index = pending.front();
        pending.pop_front();
        order.push_back(index);
        for (int next : normalSuccessors(animation, index)) {
            if (next >= count) {
                endReachable = true;
            } else if (!seen[next]) {
                seen[next] = true;
                pending.push_back(next);
            }
        }
    }
    return order;
}

} // namespace

int nextFrame(const acs::Animation& animation, int index, RandomSource& random)
{
    const acs::Frame& frame = animation.frames[index];
    if (frame.branches.empty())
        return index + 1;
    int draw = random.uniform(1, 100);
    for (const acs::Branch& branch : frame.branches) {
        draw -= branch.probability;
        if (draw <= 0)
            return branch.frame;
    }
    return index + 1;
}

std::vector<int> exitPath(const acs::Animation& animation, int from)
{
    const int count = frameCount(animation);
    std::vector<int> path;
    int index = from;
    for (int steps = 0; steps < 3 * count; ++steps) {
        if (index < 0 || index >= count)
            break;
        const int exit = animation.frames[index].exitFrame;
        const int next = exit >= 0 ? exit : index + 1;
        if (next == index || next >= count)
            break;
        path.push_back(next);
        index = next;
    }
    return path;
}

bool endsOnItsOwn(const acs::Animation& animation)
{
    bool endReachable = false;
    reachableInNormalPlay(animation, endReachable);
    return endReachable;
}

std::optional<int> speakingFrame(const acs::Animation& animation)
{
    bool endReachable = false;
    for (int index : reachableInNormalPlay(animation, endReachable)) {
        if (!animation.frames[index].overlays.empty())
            return index;
    }
    for (int index = 0; index < frameCount(animation); ++index) {
        if (!animation.frames[index].overlays.empty())
            return index;
    }
    return std::nullopt;
}

} // namespace agent::runtime::sequencer
