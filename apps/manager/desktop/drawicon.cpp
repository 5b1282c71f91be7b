#include <QCoreApplication>
#include <QImageReader>

#include <cstdio>

/// Draws an SVG file as a square PNG file: drawicon SVG SIZE PNG.
int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int size = arguments.value(2).toInt();

    QImageReader drawing(arguments.value(1));
    drawing.setScaledSize({size, size});
    const QImage picture = drawing.read();
    if (!picture.isNull() && picture.save(arguments.value(3)))
        return 0;
    std::fprintf(stderr, "%s: %s\n", qPrintable(arguments.value(1)), qPrintable(drawing.errorString()));
    return 1;
}
