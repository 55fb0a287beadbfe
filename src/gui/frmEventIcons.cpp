#include "gui/frmEventIcons.h"

namespace twk::gui {

frmEventIcons::frmEventIcons(const ImageList& images, QWidget* parent)
    : IconPagesForm(IconHelpModel::eventIcons(), images, parent) {
    setObjectName(QStringLiteral("frmEventIcons"));
}

} // namespace twk::gui
