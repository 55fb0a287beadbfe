#pragma once
// The help dialogs frmStatusIcons and frmEventIcons as a model: the vocabulary's icons
// with their names (and, for the status icons, a short explanation) in pages. cmdNext
// moves to the next page and wraps; cmdClose and Esc close.

#include <QString>

#include <vector>

namespace twk {

/// One line of a help page: an image of the grid's image list, its name, its text.
struct IconHelpRow {
    int image = -1;
    QString name;
    QString text; ///< empty on the event icon pages
};

using IconHelpPage = std::vector<IconHelpRow>;

/// The two pages of frmStatusIcons, in the order of gravity.
const std::vector<IconHelpPage>& StatusIconPages();
/// The three pages of frmEventIcons.
const std::vector<IconHelpPage>& EventIconPages();

class IconHelpModel {
public:
    static inline const QString kStatusCaption = QStringLiteral(" Status Icons...");
    static inline const QString kEventCaption = QStringLiteral(" Event Icons...");

    /// mnuStatusIcons_Click and mnuEventIcons_Click.
    static IconHelpModel statusIcons() { return {kStatusCaption, StatusIconPages()}; }
    static IconHelpModel eventIcons() { return {kEventCaption, EventIconPages()}; }

    QString caption;
    bool closed = false;

    /// Page shown now, from 0.
    int page() const { return page_; }
    int pageCount() const { return static_cast<int>(pages_->size()); }
    const IconHelpPage& rows() const { return (*pages_)[static_cast<std::size_t>(page_)]; }
    /// "page 1/2".
    QString pageText() const;

    /// The next page; after the last comes the first.
    void cmdNext_Click() { page_ = (page_ + 1) % pageCount(); }
    void cmdClose_Click() { closed = true; }

private:
    IconHelpModel(QString caption_, const std::vector<IconHelpPage>& pages)
        : caption(std::move(caption_)), pages_(&pages) {}

    const std::vector<IconHelpPage>* pages_;
    int page_ = 0;
};

} // namespace twk
