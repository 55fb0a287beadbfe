#pragma once
// Help on the status icons of the SYS$LOG.ERR view: two pages in the order of gravity.

#include "gui/IconPagesForm.h"

namespace twk::gui {

class frmStatusIcons : public IconPagesForm {
    Q_OBJECT
public:
    explicit frmStatusIcons(const ImageList& images, QWidget* parent = nullptr);
};

} // namespace twk::gui
