#pragma once

#include <QIconEngine>
#include <QMap>
#include <QPixmap>
#include <QString>

// The client's built-in icon: one picture file per square size, each decoded
// the first time a pixmap of about that size is asked for.
//
// QIcon::addFile decodes every file on the spot, and the first decoding in a
// process also has Qt ask every installed image-format plugin whether it reads
// PNG. The icon is set before any window exists but is first drawn, if ever,
// by the window system or the taskbar; decoding it up front only delays the
// main window.
//
// Pixmaps, sizes and the generated disabled and selected looks are those
// QIcon gives for the same files added with their sizes.
class ClientIconEngine : public QIconEngine
{
public:
    // `files`: the side length in pixels of each picture, and its file.
    explicit ClientIconEngine(QMap<int, QString> files);

    void paint(QPainter* painter, QRect const& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(QSize const& size, QIcon::Mode mode, QIcon::State state) override;
    QSize actualSize(QSize const& size, QIcon::Mode mode, QIcon::State state) override;
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) const override;
    QIconEngine* clone() const override;
    QString key() const override;
    void virtual_hook(int id, void* data) override;

private:
    // The side of the smallest picture that covers `size`, else of the
    // largest; 0 when there is none.
    int bestSide(QSize const& size) const;
    // Decodes on first use; a file that does not decode is dropped.
    QPixmap picture(int side);
    static QSize fitted(QSize const& side, QSize const& bound);
    static QPixmap styled(QPixmap const& normal, QIcon::Mode mode);

    QMap<int, QString> m_files;
    QMap<int, QPixmap> m_pictures;
};
