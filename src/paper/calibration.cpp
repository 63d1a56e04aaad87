#include "paper/calibration.h"

namespace {

/// Boxes that are stretched grow; bars keep the box that decides their module, around its middle.
struct Scale
{
    double by;

    void operator()(PictureCommand &picture) const { stretch(picture.box); }
    void operator()(RectangleCommand &rectangle) const { stretch(rectangle.box); }
    void operator()(BarsCommand &bars) const { bars.box.moveCenter(bars.box.center() * by); }
    void operator()(TextCommand &text) const { text.at *= by; }
    void operator()(LineCommand &line) const
    {
        line.from *= by;
        line.to *= by;
    }
    void stretch(QRectF &box) const { box = {box.topLeft() * by, box.size() * by}; }
};

} // namespace

DrawCommand scaled(DrawCommand command, double scale)
{
    std::visit(Scale{scale}, command.shape);
    return command;
}
