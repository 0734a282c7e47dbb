// Renders the program's SVG icon to PNG files of the sizes that icon themes
// look for beside the scalable one.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>
#include <cstdlib>

int main(int argc, char* argv[]) {
    if (argc < 4 || (argc - 2) % 2 != 0) {
        std::fprintf(stderr, "usage: render_icon icon.svg size out.png [size out.png]...\n");
        return 2;
    }
    QSvgRenderer icon(QString::fromLocal8Bit(argv[1]));
    if (!icon.isValid()) {
        std::fprintf(stderr, "render_icon: %s is not a valid SVG picture\n", argv[1]);
        return 1;
    }
    for (int arg = 2; arg + 1 < argc; arg += 2) {
        const int side = std::atoi(argv[arg]);
        if (side <= 0) {
            std::fprintf(stderr, "render_icon: bad size %s\n", argv[arg]);
            return 2;
        }
        QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        icon.render(&painter);
        painter.end();
        if (!image.save(QString::fromLocal8Bit(argv[arg + 1]), "PNG")) {
            std::fprintf(stderr, "render_icon: cannot write %s\n", argv[arg + 1]);
            return 1;
        }
    }
    return 0;
}
