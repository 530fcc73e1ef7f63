#pragma once

#include "app/settings/SettingsModels.h"
#include "base/Observation.h"

#include <QAbstractItemModel>

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace zv {

/// The menu's tree for the editor's outline: title and shortcut. Follows the store row by row, so that
/// what stays keeps its selection and stays open; drags and accepts records of items, and accepts files.
class MenuTreeModel : public QAbstractItemModel {
    Q_OBJECT
public:
    enum Column { titleColumn, shortcutColumn, columnEnd };

    explicit MenuTreeModel(SettingsModels& models);
    ~MenuTreeModel() override;

    [[nodiscard]] MenuItem const* item(QModelIndex const& index) const;
    /// The item's identity, also while the store is ahead of the tree.
    [[nodiscard]] std::optional<Uuid> idOf(QModelIndex const& index) const;
    /// Whether the store is ahead of the tree.
    [[nodiscard]] bool isStale() const { return m_isStale; }
    [[nodiscard]] QModelIndex indexOf(Uuid const& id) const;
    /// The position of an item dropped at that row of that parent.
    [[nodiscard]] MenuEditor::Position positionOf(int row, QModelIndex const& parent) const;

    [[nodiscard]] QModelIndex index(int row, int column, QModelIndex const& parent) const override;
    [[nodiscard]] QModelIndex parent(QModelIndex const& child) const override;
    [[nodiscard]] bool hasChildren(QModelIndex const& parent) const override;
    [[nodiscard]] int rowCount(QModelIndex const& parent) const override;
    [[nodiscard]] int columnCount(QModelIndex const&) const override { return columnEnd; }
    [[nodiscard]] QVariant data(QModelIndex const& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(QModelIndex const& index) const override;
    bool setData(QModelIndex const& index, QVariant const& value, int role) override;

    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] QMimeData* mimeData(QModelIndexList const& indexes) const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override { return Qt::MoveAction | Qt::CopyAction; }
    [[nodiscard]] Qt::DropActions supportedDragActions() const override { return Qt::MoveAction | Qt::CopyAction; }
    bool canDropMimeData(QMimeData const* data, Qt::DropAction action, int row, int column, QModelIndex const& parent) const override;
    bool dropMimeData(QMimeData const* data, Qt::DropAction action, int row, int column, QModelIndex const& parent) override;

    /// Adds the content of the clipboard or a drag.
    void take(QMimeData const& data, Qt::DropAction action, MenuEditor::Position const& position);

Q_SIGNALS:
    /// Around a rebuild after too many changes to follow, so that the view can restore selection and open rows.
    void aboutToLayAnew();
    void laidAnew();
    /// The rows have followed the store.
    void followed();

private:
    struct Node {
        Uuid id;
        Node* parent = nullptr;
        int row = 0;
        bool isGroup = false; ///< can be opened, if only to be filled
        bool isSeparator = false;
        std::vector<std::unique_ptr<Node>> children;
        MenuItem const* item = nullptr; ///< points into the store's current list: not for what others ask while the store tells of a change
        mutable std::optional<OutlineRow> shown; ///< once asked for, until the next change
    };

    void observe();
    void catchUp();
    void layAnew(std::vector<MenuItem> const& items);
    [[nodiscard]] static bool hasShape(Node const& node, std::vector<MenuItem> const& items);
    [[nodiscard]] std::unique_ptr<Node> nodeFor(MenuItem const& item, Node& parent);
    void lay(Node& node, std::vector<MenuItem> const& items);
    void remember(Node& node, std::vector<MenuItem> const& items);
    static bool note(MenuItem const& item, Node& node);
    [[nodiscard]] bool follow(std::vector<MenuItem> const& items);
    void removeAllBut(std::set<Uuid> const& staying, Node& node);
    void dropRows(Node& node, std::size_t first, std::size_t end);
    [[nodiscard]] bool place(Node& node, std::vector<MenuItem> const& items, int& steps);
    void bring(Node& node, std::size_t at, std::vector<MenuItem> const& items);
    void addRows(Node& node, std::size_t at, std::vector<MenuItem> const& items);
    void shiftRows(Node& from, std::size_t first, std::size_t count, Node& node, std::size_t at);
    void forget(Node const& node);
    static void number(Node& node, std::size_t first = 0);
    [[nodiscard]] QModelIndex indexOf(Node const& node) const;
    [[nodiscard]] OutlineRow const& rowOf(Node const& node) const;
    void tellDataChanged();
    [[nodiscard]] Node* nodeOf(QModelIndex const& index) const;
    [[nodiscard]] QVariant titleData(Node const& node, int role) const;
    [[nodiscard]] QVariant shortcutData(Node const& node, int role) const;
    [[nodiscard]] QVariant decoration(Node const& node) const;

    SettingsModels& m_models;
    Node m_root;
    std::map<Uuid, Node*> m_nodes;
    std::vector<Node const*> m_changed; ///< those whose rows somebody has asked for, in the order of the tree
    bool m_isStale = false; ///< the store has changed, and the nodes' pointers are invalid
    Observation m_observation;
};

/// The records of items, or of a library entry, for a drag or the clipboard.
[[nodiscard]] QMimeData* mimeDataOfRecords(std::vector<std::string> const& records);

} // namespace zv
