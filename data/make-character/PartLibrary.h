#pragma once

#include <QImage>
#include <QPoint>
#include <QString>
#include <functional>
#include <map>
#include <vector>

class QPainter;

namespace lumo
{

constexpr int frameSize = 128;

using PartPainter = std::function<void(QPainter&)>;

// One part drawn at 1x: opaque or fully transparent pixels only, cropped to what is drawn.
struct PartImage {
    QImage pixels; // ARGB32
    QPoint origin; // top-left corner in frame coordinates
};

// The character's drawable parts by name. Each becomes one shared image of the file; the
// painters stay available for drawing the same art at other scales (the program icon).
class PartLibrary
{
public:
    void add(const QString& name, PartPainter painter);

    int index(const QString& name) const;
    const PartImage& image(const QString& name) const;
    const PartPainter& painter(const QString& name) const;
    const std::vector<PartImage>& images() const { return images_; }

    // Draws with antialiasing, then makes every pixel fully opaque or fully transparent, as
    // the file format has no alpha.
    static PartImage render(const PartPainter& painter);

private:
    std::map<QString, int> indexes_;
    std::vector<PartPainter> painters_;
    std::vector<PartImage> images_;
};

} // namespace lumo
