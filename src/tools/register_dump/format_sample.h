#pragma once

#include <QWidget>

#include <vector>

class QLabel;

namespace tqx {

/// A sample of a written format whose parts are named beneath it, with a line from each part to
/// its name.
class FormatSample : public QWidget {
    Q_OBJECT

public:
    struct Part {
        int First; // character of the sample
        int Length;
        QLabel* Name;
    };

    /// Takes the labels over.
    FormatSample(QLabel* sample, std::vector<Part> parts);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* m_sample;
    std::vector<Part> m_parts;
};

} // namespace tqx
