#include "agent/acs/AnimationReader.h"

#include "agent/acs/FormatContext.h"

namespace agent::acs
{
namespace
{

constexpr qsizetype FrameImageBytes = 8;
constexpr qsizetype BranchBytes = 4;
constexpr qsizetype MinOverlayBytes = 14;
constexpr qsizetype MinFrameBytes = 2 + 2 + 2 + 2 + 1 + 1;
constexpr std::uint8_t LastMouth = std::uint8_t(Mouth::OpenNarrow);
constexpr std::uint8_t LastTransition = std::uint8_t(Transition::None);

Overlay readOverlay(ByteReader& in)
{
    Overlay overlay;
    const std::uint8_t mouth = in.u8();
    if (mouth > LastMouth)
        failFormat(QStringLiteral("unknown mouth type %1").arg(mouth));
    overlay.mouth = Mouth(mouth);
    overlay.replaceTopImage = in.u8() != 0;
    overlay.image = in.u16();
    in.u8();
    const bool hasRegion = in.u8() != 0;
    overlay.x = in.i16();
    overlay.y = in.i16();
    overlay.centerX = in.u16();
    overlay.centerY = in.u16();
    if (hasRegion)
        overlay.region = in.dataBlock();
    return overlay;
}

Frame readFrame(ByteReader& in)
{
    Frame frame;
    const std::uint16_t imageCount = in.u16();
    in.checkCount(imageCount, FrameImageBytes, "frame images");
    frame.images.resize(imageCount);
    for (FrameImage& image : frame.images) {
        image.image = in.u32();
        image.x = in.i16();
        image.y = in.i16();
    }
    frame.sound = in.i16();
    frame.duration = in.u16();
    frame.exitFrame = in.i16();
    const std::uint8_t branchCount = in.u8();
    in.checkCount(branchCount, BranchBytes, "branches");
    frame.branches.resize(branchCount);
    for (Branch& branch : frame.branches) {
        branch.frame = in.u16();
        branch.probability = in.u16();
    }
    const std::uint8_t overlayCount = in.u8();
    in.checkCount(overlayCount, MinOverlayBytes, "mouth overlays");
    frame.overlays.reserve(overlayCount);
    for (int i = 0; i < overlayCount; ++i)
        frame.overlays.push_back(
            withContext(QStringLiteral("overlay %1").arg(i), [&] { return readOverlay(in); }));
    return frame;
}

} // namespace

Animation readAnimation(ByteReader& in, const QString& listName)
{
    Animation animation;
    animation.name = listName;
    in.string();
    const std::uint8_t transition = in.u8();
    if (transition > LastTransition)
        failFormat(QStringLiteral("unknown transition type %1").arg(transition));
    animation.transition = Transition(transition);
    animation.returnAnimation = in.string();
    const std::uint16_t frameCount = in.u16();
    in.checkCount(frameCount, MinFrameBytes, "frames");
    animation.frames.reserve(frameCount);
    for (int i = 0; i < frameCount; ++i)
        animation.frames.push_back(
            withContext(QStringLiteral("frame %1").arg(i), [&] { return readFrame(in); }));
    return animation;
}

} // namespace agent::acs
