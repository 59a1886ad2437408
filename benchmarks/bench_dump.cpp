// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Measurement.h"

#include "link/Device.h"
#include "link/HalvoraConnThread.h"
#include "model/Halvora.h"
#include "simulator/DeviceSimulator.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QSemaphore>
#include <QThread>

// bench_dump ours|peer [OUTPUTS]: the state of a device with 64 sources and 256 outputs, or 16 of them, over a real
// link: processor time of the main thread from the login to the end of the state, for each message of the
// device. The device lives in a thread of its own, as the link does.

namespace {

constexpr int sources = 64;

DeviceState deviceOf(int outputs)
{
    DeviceState state;
    for (int i = 0; i < sources; ++i) {
        SourceState source;
        source.index = i;
        source.name = QStringLiteral("Source %1").arg(i);
        state.sources.append(source);
    }
    for (int i = 0; i < outputs; ++i)
        state.outputs.append({i, QStringLiteral("Zone %1").arg(i), i % 100, false, 1, 2, 3, 4, i % sources});
    return state;
}

/// A device in its own thread, until the end.
class Remote final : public QThread
{
public:
    explicit Remote(const DeviceState &state) : m_state(state)
    {
        start();
        m_listens.acquire();
    }

    ~Remote() override
    {
        quit();
        wait();
    }

    int port() const { return m_port; }

private:
    void run() override
    {
        DeviceSimulator device;
        device.setState(m_state);
        if (!device.listen())
            qFatal("the device cannot listen");
        m_port = device.port();
        m_listens.release();
        exec();
    }

    const DeviceState m_state;
    QSemaphore m_listens;
    int m_port = 0;
};

int rightOutputs(Halvora *device)
{
    QQmlListProperty<Output> list = device->outputs();
    int right = 0;
    for (int i = 0; i < list.count(&list); ++i) {
        const Output *output = list.at(&list, i);
        right += output->volume() == i % 100 && output->loudness() == 4 && output->selectedSource() ? 1 : 0;
    }
    return right;
}

double readState(int port, int outputs)
{
    Device address;
    address.setLocalIp(QStringLiteral("127.0.0.1"));
    address.setLocalPort(port);
    HalvoraConnThread link;
    Halvora device;
    device.setConnPointer(&link);
    int messages = 0;
    QObject::connect(&link, &HalvoraConnThread::halvoraCommandReceived, [&] { ++messages; });
    QEventLoop loop;
    QObject::connect(&link, &HalvoraConnThread::firstConnected, &loop, &QEventLoop::quit);
    link.setDevice(&address);
    // The last word of the screen before the device's first; dialling is not part of the state.
    double before = 0;
    QObject::connect(&link, &HalvoraConnThread::setConnectionScreenMessage, &loop,
                     [&] { before = Measurement::threadSeconds(); });
    link.restartLink();
    loop.exec();
    const double elapsed = Measurement::threadSeconds() - before;
    link.stopLink();
    if (rightOutputs(&device) != outputs)
        qFatal("the state has not arrived");
    return elapsed / messages;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const Measurement::Call call(argc, argv);
    const int outputs = call.number(1, call.isPeer() ? 16 : 256);
    const Remote remote(deviceOf(outputs));
    const double seconds = Measurement::medianOfTurns([&] { return readState(remote.port(), outputs); });
    call.report("dump", seconds * 1e6, "us");
    return 0;
}
