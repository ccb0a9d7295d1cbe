#include "PartLibrary.h"

#include <QPainter>
#include <stdexcept>

namespace lumo
{

void PartLibrary::add(const QString& name, PartPainter painter)
{
    if (indexes_.contains(name))
        throw std::logic_error("part drawn twice: " + name.toStdString());
    indexes_[name] = static_cast<int>(images_.size());
    images_.push_back(render(painter));
    painters_.push_back(std::move(painter));
}

int PartLibrary::index(const QString& name) const
{
    const auto found = indexes_.find(name);
    if (found == indexes_.end())
        throw std::out_of_range("no such part: " + name.toStdString());
    return found->second;
}

const PartImage& PartLibrary::image(const QString& name) const
{
    return images_[static_cast<std::size_t>(index(name))];
}

const PartPainter& PartLibrary::painter(const QString& name) const
{
    return painters_[static_cast<std::size_t>(index(name))];
}

PartImage PartLibrary::render(const PartPainter& painter)
{
    QImage canvas(frameSize, frameSize, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    {
        QPainter p(&canvas);
        p.setRenderHint(QPainter::Antialiasing);
        painter(p);
    }
    canvas.convertTo(QImage::Format_ARGB32);

    QRect drawn;
    for (int y = 0; y < canvas.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(canvas.scanLine(y));
        for (int x = 0; x < canvas.width(); ++x) {
            if (qAlpha(row[x]) >= 128) {
                row[x] = qRgb(qRed(row[x]), qGreen(row[x]), qBlue(row[x]));
                drawn |= QRect(x, y, 1, 1);
            } else {
                row[x] = 0;
            }
        }
    }
    if (drawn.isEmpty())
        throw std::logic_error("a part draws nothing");
    return {canvas.copy(drawn), drawn.topLeft()};
}

} // namespace lumo
