// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "screens/ListConnections.h"

void ListConnections::setView(QQuickItem *view)
{
    m_view = view;
    // Views and their models are no public classes of Qt; only QML names them.
    if (view && view->metaObject()->indexOfSignal("modelChanged()") >= 0)
        connect(view, SIGNAL(modelChanged()), this, SLOT(takeBack()));
    Q_EMIT viewChanged();
}

void ListConnections::takeBack()
{
    const QObjectList &children = m_view->children();
    for (QObject *model : children) {
        if (model->inherits("QQmlDelegateModel"))
            disconnect(model, SIGNAL(delegateChanged()), m_view, nullptr);
    }
}
