#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>

namespace quorrin {

class Recovery;

/// Says when the recovery copy is brought up to date: once nothing has happened for a moment, and every now and then
/// while things keep happening. Whatever the person does with mouse and keyboard counts, so what is only being typed or
/// drawn is kept, too.
class RecoveryClock : public QObject {
public:
    explicit RecoveryClock(Recovery& recovery, std::chrono::milliseconds quiet = std::chrono::seconds(2),
                           std::chrono::milliseconds latest = std::chrono::seconds(20));
    ~RecoveryClock() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void happened();
    void due();

    Recovery& recovery_;
    QTimer quiet_;
    QTimer latest_;
};

} // namespace quorrin
