// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "navigation/BrowseReference.h"
#include "navigation/NavigationView.h"
#include "navigation/SectionItems.h"

#include <QJsonValue>
#include <QQmlListProperty>

/**
 * One list of the library on the screen, with a section for each type of rows. Rows arrive with key, name and type
 * alone; album, artists, length and pictures are asked for when their rows come near what is on show. It asks by its
 * signals, knows no player, and gets its answers by the calls below. "qrc:/Qml/BrowseList.qml" gives it its looks.
 *
 * Made from that file by a controller or another view, in the GUI thread. It shares its sections with other views.
 */
class BrowseListView : public NavigationView
{
    Q_OBJECT
    Q_PROPERTY(QStringList rowTypes READ rowTypes NOTIFY rowTypesChanged)
    Q_PROPERTY(QQmlListProperty<PlayerItem> allSortedItems READ allSortedItems NOTIFY allSortedItemsChanged)

public:
    explicit BrowseListView(QQuickItem *parent = nullptr);
    ~BrowseListView() override;

    /// The types of the rows, in the order of the sections; empty by default.
    QStringList rowTypes() const { return m_rowTypes; }
    /// All rows, section by section. Each read puts the list together anew.
    virtual QQmlListProperty<PlayerItem> allSortedItems();

    // To fill the view: first the types, then the sections, one for each type, which tells the screen.
    void setRowTypes(const QStringList &rowTypes);
    void setSections(const QHash<QString, SectionItems *> &sections);

    /// Takes the details of rows of that type from a lookup's answer. Entries that are no row's are skipped, a value
    /// of the wrong type changes nothing.
    void updateItems(const QString &type, const QJsonValue &value);
    /// Takes the addresses of rows' pictures from an answer; rows without any go to the fallback service.
    void updateImages(const QString &type, const QJsonValue &value);

    /// The rows from the one with that key to the end of its section, directories and playlists left aside; empty for
    /// an unknown key.
    QList<PlayerItem *> itemsFromUri(const QString &uri) const;
    QStringList urisFromUri(const QString &uri) const;

    /// Has a new list of the entries of `uri` pushed.
    Q_INVOKABLE void requirePushView(QString uri, QString title);
    /// Asks for what is missing of the rows from `startIndex` to `endIndex` of the list and of ten more on either side.
    /// -1 stands for a place where no row is.
    Q_INVOKABLE void requireLookup(int startIndex, int endIndex);
    /// Has `item` show the picture of that URL, now or when it has been fetched.
    Q_INVOKABLE void requestImage(QString uri, QQuickItem *item);
    /// Withdraws `item` from a picture that is being fetched.
    Q_INVOKABLE void discardImage(QString uri, QQuickItem *item);

Q_SIGNALS:
    void rowTypesChanged();
    void allSortedItemsChanged(); ///< declared only: the list is read anew at rowTypesChanged()
    void browse(BrowseListView *v, QString uri);
    void lookup(BrowseReference *b);
    void lookupImages(BrowseReference *b);
    void needRefresh(); ///< rows have new details or pictures
    void playNow(QStringList uris);
    void openMenuWithItem(PlayerItem *item);

protected:
    const QHash<QString, SectionItems *> &sections() const { return m_sections; }
    /// The list of at most `limit` rows of each section.
    QQmlListProperty<PlayerItem> firstItems(int limit);

private:
    struct Found;

    Found find(const QString &uri) const;
    SectionItems *sectionOf(const QString &type) const;
    void requestMissing(const QString &type, const SectionItems &section, int start, int end);
    BrowseReference *newReference(const QString &type, const QStringList &uris);
    void requestFallback(const QList<PlayerItem *> &items);

    QStringList m_rowTypes;
    QHash<QString, SectionItems *> m_sections;
    QList<PlayerItem *> m_allSortedItems;
};
