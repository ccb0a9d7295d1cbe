#pragma once

namespace agent::runtime
{

// Times that the character file does not hold, in milliseconds; tests shorten them.
struct RuntimeTiming {
    int idleDelay = 5000;   // quiet time before idling begins
    int idleGap = 6000;     // pause between two idle animations
    int idleLevel = 15000;  // time on one idle level before the next deeper one
    int move = 1000;        // a MoveTo slide
    int balloonHide = 1500; // the balloon stays this long after the speech
};

} // namespace agent::runtime
