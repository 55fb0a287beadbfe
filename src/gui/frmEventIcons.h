#pragma once
// Help on the event type icons of the SYS$LOG.ERR view: three pages of icons and names.

#include "gui/IconPagesForm.h"

namespace twk::gui {

class frmEventIcons : public IconPagesForm {
    Q_OBJECT
public:
    explicit frmEventIcons(const ImageList& images, QWidget* parent = nullptr);
};

} // namespace twk::gui
