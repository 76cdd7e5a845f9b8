// How every view of the program looks and reads, against what was accepted: the guided tour with a
// look at each of its stops. scripts/renew-snapshots.sh accepts what is seen now.

#include "app/snapshot.h"
#include "tour.h"

#include <QCryptographicHash>
#include <QDir>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace tqx {
namespace {

using namespace std::string_literals;

const std::string Accepted = TQX_SOURCE_DIR "/tests/app/";
const std::string Seen = TQX_LOOKS_DIR "/"; ///< of this run, and the pictures that are not accepted

/// What is known of each stop, by its name.
using Stops = std::map<std::string, std::string>;

/// A line per stop: its name and the hash of its picture.
Stops ReadPictures(const std::string& path) {
    Stops stops;
    std::ifstream file(path);
    for (std::string name, hash; file >> name >> hash;) {
        stops[name] = hash;
    }
    return stops;
}

/// A heading per stop, and its lines.
Stops ReadSnapshots(const std::string& path) {
    Stops stops;
    std::ifstream file(path);
    std::string name;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("== ")) {
            name = line.substr(3);
            stops[name];
        } else {
            stops[name] += line + '\n';
        }
    }
    return stops;
}

std::string HashOf(const QImage& picture) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(QByteArrayView(picture.constBits(), picture.sizeInBytes()));
    return hash.result().toHex().toStdString();
}

/// The picture with the accepted one at its left: that of the last renewal in this build folder, or
/// of the documentation. Alone where there is none.
QImage BesideAccepted(const QImage& picture, const std::string& name) {
    QImage accepted;
    for (const std::string& folder : {Seen + "accepted/", TQX_SOURCE_DIR "/docs/pictures/"s}) {
        if (accepted.isNull()) {
            accepted.load(QString::fromStdString(folder + name + ".png"));
        }
    }
    QImage both(accepted.width() + picture.width(), std::max(accepted.height(), picture.height()),
                QImage::Format_RGB32);
    both.fill(Qt::white);
    QPainter painter(&both);
    painter.drawImage(0, 0, accepted);
    painter.drawImage(accepted.width(), 0, picture);
    return both;
}

TEST(TourTest, EveryStopLooksAndReadsAsAccepted) {
    const Stops acceptedPictures = ReadPictures(Accepted + "pictures.txt");
    Stops acceptedSnapshots = ReadSnapshots(Accepted + "snapshots.txt");
    QDir().mkpath(TQX_LOOKS_DIR);
    std::string snapshots;
    Stops pictures;
    test::Snapshot snapshot;
    Tour tour([&](QWidget& window, const QString& stop) {
        const std::string name = stop.toStdString();
        const std::string words = snapshot.Of(window);
        snapshots += "== " + name + '\n' + words;
        EXPECT_EQ(words, acceptedSnapshots[name]) << name << " reads in another way";

        const QImage picture = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
        pictures[name] = HashOf(picture);
        const auto accepted = acceptedPictures.find(name);
        if (accepted == acceptedPictures.end() || accepted->second != pictures[name]) {
            const std::string file = Seen + name + ".png";
            EXPECT_TRUE(BesideAccepted(picture, name).save(QString::fromStdString(file)));
            ADD_FAILURE() << name << " looks another way: " << file;
        }
    });
    tour.Program().TheBench().Failures = [](const LinkError& error) {
        ADD_FAILURE() << error.what();
    };
    ASSERT_NO_THROW(tour.Run());

    std::ofstream(Seen + "snapshots.txt") << snapshots;
    std::ofstream list(Seen + "pictures.txt");
    for (const auto& [name, hash] : pictures) {
        list << name << ' ' << hash << '\n';
    }
    EXPECT_EQ(pictures.size(), acceptedPictures.size()) << "a stop has gone";
}

} // namespace
} // namespace tqx
