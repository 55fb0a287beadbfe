#include "gui/frmOpenFile.h"

#include "gui/ImageList.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

constexpr int kProgressMs = 50;

QLabel* fact(const char* name, const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QLabel* openFileCaption(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setStyleSheet(QStringLiteral("color: #5b626c;"));
    return label;
}

QLabel* picture(const char* name, const QPixmap& pixmap, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setPixmap(pixmap);
    label->setFixedSize(20, 20);
    return label;
}

} // namespace

frmOpenFile::frmOpenFile(std::unique_ptr<OpenFileDialogModel> model, const ImageList& images,
                         QWidget* parent)
    : QDialog(parent), model_(std::move(model)), progressBar_(new QProgressBar(this)),
      cmdOpen_(new QPushButton(QStringLiteral("&open"), this)),
      cmdCancel_(new QPushButton(QStringLiteral("&cancel"), this)) {
    setObjectName(QStringLiteral("frmOpenFile"));
    setWindowTitle(kCaption);
    const OpenFileFacts& f = model_->facts;

    auto* kind = fact("lbLogfile", f.lbLogfile, this);
    QFont big = kind->font();
    big.setBold(true);
    big.setPointSizeF(big.pointSizeF() * 1.3);
    kind->setFont(big);

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(10);
    int row = 0;
    const auto add = [&](QLabel* pictureLabel, const QString& title, QLabel* value) {
        if (pictureLabel != nullptr)
            grid->addWidget(pictureLabel, row, 0);
        grid->addWidget(openFileCaption(title, this), row, 1);
        grid->addWidget(value, row, 2);
        ++row;
    };
    add(picture("imgServer", images.pixmap(QStringLiteral("picServer"), 16), this),
        QStringLiteral("server"), fact("lbServer", f.lbServer, this));
    add(picture("imgRecords", images.pixmap(QStringLiteral("imgFile"), 16), this),
        QStringLiteral("records"), fact("lbRecords", f.lbRecords, this));
    add(picture("imgFirstEntry", images.pixmap(f.imgFirstEntry, 16), this), f.firstEntryCaption,
        fact("lbFirstEntry", f.lbFirstEntry, this));
    add(picture("imgLastEntry", images.pixmap(f.imgLastEntry, 16), this), f.lastEntryCaption,
        fact("lbLastEntry", f.lbLastEntry, this));
    add(picture("imgFileSize", images.pixmap(QStringLiteral("imgFileSize"), 16), this),
        QStringLiteral("file size"), fact("lbFileSize", f.lbFileSize, this));
    add(picture("imgPath", images.pixmap(QStringLiteral("picLogfile"), 16), this),
        QStringLiteral("file"), fact("lbLogFilePath", f.lbLogFilePath, this));
    grid->setColumnStretch(2, 1);

    progressBar_->setObjectName(QStringLiteral("ProgressBar1"));
    progressBar_->setRange(0, 100);
    progressBar_->setValue(0);
    progressBar_->setTextVisible(false);
    progressBar_->setMaximumHeight(12);
    cmdOpen_->setObjectName(QStringLiteral("cmdOpen"));
    cmdCancel_->setObjectName(QStringLiteral("cmdCancel"));
    cmdOpen_->setDefault(true);
    cmdCancel_->setAutoDefault(false);
    connect(cmdOpen_, &QPushButton::clicked, this, &frmOpenFile::cmdOpen_Click);
    connect(cmdCancel_, &QPushButton::clicked, this, &frmOpenFile::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(progressBar_, 1);
    buttons->addWidget(cmdOpen_);
    buttons->addWidget(cmdCancel_);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(kind);
    layout->addLayout(grid);
    layout->addSpacing(6);
    layout->addLayout(buttons);
    setMinimumWidth(420);

    progressTimer_.setInterval(kProgressMs);
    connect(&progressTimer_, &QTimer::timeout, this, &frmOpenFile::showProgress);
}

frmOpenFile::~frmOpenFile() = default;

QLabel* frmOpenFile::label(const QString& name) const {
    return findChild<QLabel*>(name);
}

void frmOpenFile::showProgress() {
    if (progressBar_->value() != model_->ProgressBar1)
        progressBar_->setValue(model_->ProgressBar1);
}

void frmOpenFile::cmdOpen_Click() {
    if (running_)
        return;
    running_ = true;
    cmdOpen_->setEnabled(false);
    cmdCancel_->setEnabled(false);
    progressTimer_.start();
    result_ = model_->cmdOpen_Click();
    progressTimer_.stop();
    showProgress();
    running_ = false;
    if (model_->closed)
        accept();
}

void frmOpenFile::reject() {
    if (running_)
        return; // the reader runs to its end
    model_->cmdCancel_Click();
    QDialog::reject();
}

} // namespace twk::gui
