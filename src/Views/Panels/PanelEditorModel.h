#pragma once

#include "Views/Panels/PanelAxisModel.h"
#include "Views/Shared/ScreenModel.h"

namespace corvane {

/// What the panel editor says besides its two lists.
struct PanelEditorContent {
    Q_GADGET
    QML_VALUE_TYPE(panelEditorContent)
    Q_PROPERTY(bool isShown MEMBER isShown FINAL)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(QString missing MEMBER missing FINAL)
    Q_PROPERTY(QString saveText MEMBER saveText FINAL)
    Q_PROPERTY(bool isSavable MEMBER isSavable FINAL)

public:
    bool isShown = false;
    QString title{};
    /// How many saved ports the router hasn't got; empty for none.
    QString missing{};
    QString saveText{};
    bool isSavable = false;

    bool operator==(const PanelEditorContent&) const = default;
};

/// Edits a copy of a panel; the controller gets it with `commit` and not before.
///
/// What becomes of the router meanwhile changes which ports are listed, never what is chosen.
class PanelEditorModel : public ScreenModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a PanelsModel")
    Q_PROPERTY(corvane::PanelEditorContent content READ content NOTIFY contentChanged FINAL)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged FINAL)
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged FINAL)
    Q_PROPERTY(corvane::PanelAxisModel* sources READ sources CONSTANT FINAL)
    Q_PROPERTY(corvane::PanelAxisModel* destinations READ destinations CONSTANT FINAL)

public:
    explicit PanelEditorModel(const GlassKit& theme, QObject* parent = nullptr);

    /// Opens the editor; a panel that the controller hasn't got is a new one.
    void begin(const SubPanel& panel);

    [[nodiscard]] const PanelEditorContent& content() const { return m_content; }
    [[nodiscard]] const QString& name() const { return m_panel.name; }
    void setName(const QString& name);
    [[nodiscard]] const QString& search() const { return m_search; }
    void setSearch(const QString& search);
    [[nodiscard]] PanelAxisModel* sources() { return &m_sources; }
    [[nodiscard]] PanelAxisModel* destinations() { return &m_destinations; }

    /// Saves and closes, if there is a name and a port of either kind; a new panel becomes the active one.
    Q_INVOKABLE void commit();
    Q_INVOKABLE void cancel();

signals:
    void nameChanged();
    void searchChanged();

protected:
    void refresh() override;

private:
    [[nodiscard]] bool isSavable() const;
    void close();
    void refreshContent();

    PanelEditorContent m_content;
    SubPanel m_panel;
    bool m_isShown = false;
    bool m_isNew = false;
    QString m_search;
    PanelAxisModel m_sources{PortKind::source};
    PanelAxisModel m_destinations{PortKind::destination};
};

} // namespace corvane
