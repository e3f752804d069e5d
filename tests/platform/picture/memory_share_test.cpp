#include "platform/picture/memory_share.h"

#include "../../support/run_all.h"
#include "platform/picture/refusal.h"

#include <atomic>
#include <thread>
#include <vector>

class TestMemoryShare : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void threadsTogetherTakeNoMoreThanOnePictureMay() {
        for (const auto& [share, together] :
             {std::pair(pictureMemoryLimit() / 2 + 1, 1), {pictureMemoryLimit() / 3, 3}}) {
            std::atomic<int> holders = 0;
            std::atomic<int> most = 0;
            const auto takeOften = [&, bytes = share] {
                for (int i = 0; i < 200; ++i) {
                    const MemoryShare held(bytes);
                    const int now = ++holders;
                    for (int seen = most; seen < now && !most.compare_exchange_weak(seen, now);) {
                    }
                    std::this_thread::yield();
                    --holders;
                }
            };
            {
                std::vector<std::jthread> threads;
                for (int i = 0; i < 6; ++i) threads.emplace_back(takeOften);
            }
            QVERIFY2(most <= together, qPrintable(QString::number(most)));
        }
    }

    void onePictureAlwaysHasRoom() { const MemoryShare whole(2 * pictureMemoryLimit()); }
};

const Registered<TestMemoryShare> registered;

#include "memory_share_test.moc"
