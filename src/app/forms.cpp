#include "app/forms.h"

#include "platform/machine/window_style.h"
#include "shell/cls_style.h"

void keepOnTop(QWidget &window, bool on)
{
    const auto words = windowStyleOf(window);
    clsStyle style(*words);
    if (style.TopMost() != on)
        style.setTopMost(on);
}
