// tarnwick: the window program.

#include <QApplication>
#include <QLabel>
#include <QMainWindow>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral(" Tarnwick"));
    auto* label = new QLabel(QStringLiteral("Tarnwick"), &window);
    label->setAlignment(Qt::AlignCenter);
    window.setCentralWidget(label);
    window.resize(1024, 700);
    window.show();
    return QApplication::exec();
}
