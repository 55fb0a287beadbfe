#include "gui/frmDownload.h"

#include "core/Engine.h"
#include "gui/FormBinding.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

const QColor kBar(0, 0, 128);

} // namespace

ProgressPicture::ProgressPicture(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("picProgress"));
    setMinimumHeight(22);
}

void ProgressPicture::setProgress(int percent, const QString& text) {
    if (percent == percent_ && text == text_)
        return;
    percent_ = percent;
    text_ = text;
    update();
}

void ProgressPicture::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QRect frame = rect().adjusted(0, 0, -1, -1);
    p.fillRect(rect(), Qt::white);
    p.setPen(palette().color(QPalette::Mid));
    p.drawRect(frame);
    const QRect inner = rect().adjusted(1, 1, -1, -1);
    const QRect bar(inner.left(), inner.top(), inner.width() * percent_ / 100, inner.height());
    p.fillRect(bar, kBar);
    // The text in the bar's colour, and in white where the bar lies under it.
    p.setPen(kBar);
    p.drawText(inner, Qt::AlignCenter, text_);
    p.setClipRect(bar);
    p.setPen(Qt::white);
    p.drawText(inner, Qt::AlignCenter, text_);
}

frmDownload::frmDownload(Engine& engine, const QString& caption, QWidget* parent)
    : QDialog(parent), engine_(engine), model_(engine, caption), chkbProxy_(new QCheckBox(this)),
      txtbProxyServer_(makeField("txtbProxyServer", this)),
      txtbProxyPort_(makeField("txtbProxyPort", this)), txtURL_(makeField("txtURL", this)),
      txtLocalFile_(makeField("txtLocalFile", this)), lblStatus_(new QLabel(this)),
      picProgress_(new ProgressPicture(this)),
      cmdDownload_(makeButton("cmdDownload", this, model_.cmdDownload.caption)),
      cmdAbort_(makeButton("cmdAbort", this, model_.cmdAbort.caption)),
      cmdInstall_(makeButton("cmdInstall", this, model_.cmdInstall.caption)),
      cmdClose_(makeButton("cmdClose", this, model_.cmdClose.caption)) {
    setObjectName(QStringLiteral("frmDownload"));
    chkbProxy_->setObjectName(QStringLiteral("chkbProxy"));
    lblStatus_->setObjectName(QStringLiteral("lblStatus"));
    lblStatus_->setTextFormat(Qt::PlainText);
    txtbProxyPort_->setMaximumWidth(70);
    txtURL_->setMinimumWidth(380);
    txtURL_->setReadOnly(true);
    txtLocalFile_->setReadOnly(true);
    model_.changed = [this] {
        render();
    };
    model_.DateiName = [] {
        // Every window closes; the main window's unload ends the program.
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->objectName() == QStringLiteral("Mainfrm"))
                w->close();
        QCoreApplication::quit();
    };

    connect(chkbProxy_, &QCheckBox::toggled, this, [this](bool on) {
        model_.chkbProxy.checked = on;
        render();
    });
    connect(txtbProxyServer_, &QLineEdit::textEdited, this,
            [this](const QString& t) { model_.txtbProxyServer.text = t; });
    connect(txtbProxyPort_, &QLineEdit::textEdited, this,
            [this](const QString& t) { model_.txtbProxyPort.text = t; });
    connect(cmdDownload_, &QPushButton::clicked, this, [this] {
        model_.cmdDownload_Click();
        render();
    });
    connect(cmdAbort_, &QPushButton::clicked, this, [this] {
        model_.cmdAbort_Click();
        render();
    });
    connect(cmdInstall_, &QPushButton::clicked, this, [this] {
        model_.cmdInstall_Click();
        render();
    });
    connect(cmdClose_, &QPushButton::clicked, this, &QDialog::reject);

    auto* proxy = new QHBoxLayout;
    proxy->addWidget(chkbProxy_);
    proxy->addWidget(txtbProxyServer_, 1);
    proxy->addWidget(new QLabel(QStringLiteral(":"), this));
    proxy->addWidget(txtbProxyPort_);
    auto* files = new QGridLayout;
    files->addWidget(new QLabel(QStringLiteral("address:"), this), 0, 0);
    files->addWidget(txtURL_, 0, 1);
    files->addWidget(new QLabel(QStringLiteral("local file:"), this), 1, 0);
    files->addWidget(txtLocalFile_, 1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdDownload_);
    buttons->addWidget(cmdAbort_);
    buttons->addWidget(cmdInstall_);
    buttons->addStretch(1);
    buttons->addWidget(cmdClose_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(proxy);
    layout->addLayout(files);
    layout->addWidget(lblStatus_);
    layout->addWidget(picProgress_);
    layout->addLayout(buttons);

    model_.Form_Load();
    render();
}

void frmDownload::render() {
    if (windowTitle() != model_.caption)
        setWindowTitle(model_.caption);
    showCheckBox(chkbProxy_, model_.chkbProxy);
    showTextBox(txtbProxyServer_, model_.txtbProxyServer);
    showTextBox(txtbProxyPort_, model_.txtbProxyPort);
    txtbProxyServer_->setEnabled(model_.chkbProxy.checked);
    txtbProxyPort_->setEnabled(model_.chkbProxy.checked);
    showTextBox(txtURL_, model_.txtURL);
    showTextBox(txtLocalFile_, model_.txtLocalFile);
    lblStatus_->setText(model_.lblStatus.text);
    QFont font = lblStatus_->font();
    font.setBold(model_.lblStatus.bold);
    lblStatus_->setFont(font);
    QPalette palette = lblStatus_->palette();
    palette.setColor(QPalette::WindowText, rgbColor(model_.lblStatus.color));
    lblStatus_->setPalette(palette);
    picProgress_->setProgress(model_.percent(), model_.progressText());
    showButton(cmdDownload_, model_.cmdDownload);
    showButton(cmdAbort_, model_.cmdAbort);
    showButton(cmdInstall_, model_.cmdInstall);
    cmdClose_->setEnabled(model_.state != DownloadState::Downloading);
}

void frmDownload::done(int result) {
    model_.Form_Unload();
    QDialog::done(result);
}

} // namespace twk::gui
