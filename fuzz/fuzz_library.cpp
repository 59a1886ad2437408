// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

// The music server's answers about its library, into the lists of a stack. Each line is one of the words below, most of
// which have the list on top ask for something, and mostly a blank and an answer, for the oldest request that has none.

#include "images/BackupImageDownloader.h"
#include "navigation/NavigationBar.h"
#include "navigation/SearchNavController.h"
#include "player/HalvoraPlayer.h"
#include "support/FuzzRun.h"
#include "support/Listed.h"
#include "support/Require.h"
#include "support/Words.h"

#include <limits>

namespace {

// The product's stack makes its first list from a QML file, and then does with it what is done here.
class Stack final : public SearchNavController
{
public:
    void begin(BrowseListView *root)
    {
        setRootView(root);
        connectRequests(root);
    }
};

class Library final
{
public:
    Library()
    {
        m_player.startConnection();
        m_stack.setCurrentPlayer(&m_player);
        m_stack.setNavigationBar(&m_bar);
        m_stack.begin(newView());
    }

    BrowseListView *top() const { return m_views.last(); }
    QList<PlayerItem *> rows() const { return listed(top()->allSortedItems()); }

    void browse() { m_stack.sendBrowse(top(), QStringLiteral("local:directory")); }
    void search() { m_stack.sendSearch(QStringLiteral("a"), QString()); }
    void lookAt() { top()->requireLookup(0, 20); }
    void lookAtEnd() { top()->requireLookup(rows().size() - 1, std::numeric_limits<int>::max() / 2); }
    void push() { m_stack.pushView(newView()); }
    void pop();
    void playNow();
    void playRest();
    void intoPlaylist();

    void wait() { }

    void answer(const QByteArray &json);
    void requireSound() const;

private:
    BrowseListView *newView();

    HalvoraPlayer m_player;
    NavigationBar m_bar;
    Stack m_stack; // destroys its views
    QList<BrowseListView *> m_views;
    QList<int> m_waiting; // numbers of requests without an answer
    int m_next = 0;       // number of the next one
};

BrowseListView *Library::newView()
{
    m_views << new BrowseListView;
    return m_views.last();
}

void Library::pop()
{
    if (m_views.size() > 1)
        m_views.removeLast();
    m_stack.popLastView();
}

void Library::playNow()
{
    m_stack.menuActionForItem(QStringLiteral("It_PlayNow"), rows().value(0));
}

void Library::playRest()
{
    m_stack.menuActionForItem(QStringLiteral("It_AddToQueue_All"), rows().value(0));
}

void Library::intoPlaylist()
{
    const QList<PlayerItem *> items = rows();
    for (PlayerItem *item : {items.value(0), items.value(items.size() - 1)})
        m_stack.menuActionForItemPL(QStringLiteral("It_AddToPlaylist_All"), item, QStringLiteral("m3u:a"));
}

void Library::answer(const QByteArray &json)
{
    const int next = m_player.actionPlayIndex(nullptr, ""); // tells how many there have been
    for (; m_next < next; ++m_next)
        m_waiting << m_next;
    ++m_next;
    if (m_waiting.isEmpty())
        return;
    const QByteArray number = QByteArray::number(m_waiting.takeFirst());
    m_player.socketMessageReceived(QString::fromUtf8("{\"id\":\"" + number + "\",\"result\":" + json + '}'));
}

void Library::requireSound() const
{
    const QList<PlayerItem *> items = rows();
    for (PlayerItem *item : items) {
        REQUIRE(item && top()->rowTypes().contains(item->type()));
        const QStringList rest = top()->urisFromUri(item->uri());
        REQUIRE(rest.isEmpty() || rest.first() == item->uri());
        REQUIRE(rest.size() == top()->itemsFromUri(item->uri()).size());
        item->smallImgPath();
    }
}

struct Word
{
    const char *word;
    void (Library::*act)();
};

constexpr Word words[] = {
    {"browse", &Library::browse}, {"search", &Library::search}, {"look", &Library::lookAt},
    {"end", &Library::lookAtEnd}, {"push", &Library::push},     {"pop", &Library::pop},
    {"play", &Library::playNow},  {"rest", &Library::playRest}, {"list", &Library::intoPlaylist},
    {"then", &Library::wait},
};

void obey(Library &library, const QByteArray &line)
{
    const int blank = line.indexOf(' ');
    const Word *word = entryOf(words, line.left(blank));
    if (!word)
        return;
    (library.*word->act)();
    if (blank >= 0)
        library.answer(line.mid(blank + 1));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    constexpr int mostLines = 32;
    const FuzzRun run;
    {
        Library library;
        for (const QByteArray &line : FuzzRun::lines(data, size, mostLines)) {
            obey(library, line);
            library.requireSound();
            FuzzRun::settle();
            library.requireSound();
        }
    }
    while (auto *batch = FuzzRun::find<BackupImageDownloader>()) {
        batch->wait();
        FuzzRun::settle(); // frees it
    }
    return 0;
}
