#include "gui/frmStatusIcons.h"

namespace twk::gui {

frmStatusIcons::frmStatusIcons(const ImageList& images, QWidget* parent)
    : IconPagesForm(IconHelpModel::statusIcons(), images, parent) {
    setObjectName(QStringLiteral("frmStatusIcons"));
}

} // namespace twk::gui
