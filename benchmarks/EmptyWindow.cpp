// The least that a program with a Qt Quick window can be: what the program's own window is
// measured against.
//
//     hmatnik_empty_window WIDTH HEIGHT

#include <QGuiApplication>
#include <QQuickView>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    QQuickView view;
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.resize(arguments.value(1).toInt(), arguments.value(2).toInt());
    view.setSource(QUrl(u"qrc:/qt/qml/HmatnikBenchmarks/EmptyWindow.qml"_s));
    view.show();
    return QGuiApplication::exec();
}
