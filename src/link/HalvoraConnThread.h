// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QStringList>
#include <QThread>

#include <atomic>

class Device;

/**
 * The link to the device as the rest of the client sees it: the thread it runs in, the login, the texts of the
 * connection screen, and the first sorting of what the device says.
 *
 * The object itself, its slots included, lives in the GUI thread; MainTabController holds it by value. Each run
 * of the thread makes a HalvoraConnection of its own and deletes it at its end, and the two sides meet in queued
 * connections alone. What an ended run still had in the queue is ignored.
 */
class HalvoraConnThread final : public QThread
{
    Q_OBJECT

public:
    /// Reads the "uniqueID" of the host's QSettings, which names this client to the device; "" without one.
    explicit HalvoraConnThread(QObject *parent = nullptr);
    ~HalvoraConnThread() override;

    /// Stops the link and takes the device for the next start. Not owned; it must live, and stay as it is,
    /// while the link runs. Null: no address is taken from now on; a start dials the last one again.
    void setDevice(Device *device);
    /// Starts the link, ending a running one first. Blocks until that one has ended.
    void restartLink();
    /// Ends the link and waits for it.
    void stopLink();

Q_SIGNALS:
    void showConnectionScreen(bool show);
    void setConnectionScreenMessage(QString message);
    /// One message of the device, its fields in order with the empty ones in place: number, "BROAD", code, a
    /// field that is not read, payload. Always three fields or more.
    void halvoraCommandReceived(QStringList command);
    void requireSendString(QString message);
    void requireSendCommand(QString message);
    void requireAuthenticationDialog();
    void firstConnected(); ///< the first whole state dump of a run has arrived
    void deviceSettingsUrlsUpdated(QString getUrl, QString postUrl);

public Q_SLOTS:
    void connectionOpen();
    void connectionEstablished();
    void connectionErrorReceived();
    void elaborateCommandReceived(QString command);
    void authenticationRefused();

protected:
    void run() override;

private:
    void endRun();
    void chooseAddress();
    QString loginText() const;
    template<typename Sender, typename Signal, typename Slot>
    void connectForThisRun(Sender *sender, Signal signal, Slot slot);

    Device *m_device = nullptr;
    const QString m_uniqueID;
    QString m_host;
    int m_port = 0;
    bool m_useLocal = false;
    bool m_useRemote = false;
    bool m_viaLocal = false;
    bool m_firstPending = false;
    std::atomic<int> m_run{0}; // number of the current run; counted up when one is ended
};
