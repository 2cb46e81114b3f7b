#include "qt/late_icon.h"

#include <QIconEngine>
#include <QPainter>

#include <utility>

namespace velmora {

namespace {

class LateEngine : public QIconEngine {
public:
    explicit LateEngine(std::function<QIcon()> make) : make_(std::move(make)) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode,
               QIcon::State state) override {
        Made().paint(painter, place, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return Made().pixmap(size, 1, mode, state);  // the size is in pixels of the device
    }
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return Made().actualSize(size, mode, state);
    }
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
        return Made().availableSizes(mode, state);
    }
    bool isNull() override { return false; }
    QIconEngine* clone() const override { return new LateEngine(*this); }

private:
    const QIcon& Made() {
        if (made_.isNull()) made_ = make_();
        return made_;
    }

    std::function<QIcon()> make_;
    QIcon made_;
};

}  // namespace

QIcon LateIcon(std::function<QIcon()> make) { return QIcon(new LateEngine(std::move(make))); }

}  // namespace velmora
