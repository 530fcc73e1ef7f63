#pragma once

#include "app/settings/MenuEditor.h"
#include "app/settings/PictureTexts.h"
#include "base/Lifetime.h"
#include "base/Observation.h"
#include "platform/System.h"

#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// Gives items a picture: one of the system's, found by name, or an image that is copied. Main thread only.
class PictureChooser {
public:
    struct Services {
        MenuEditor& editor;
        System const& system;
        Surface const& surface;
    };

    explicit PictureChooser(Services services);

    [[nodiscard]] PictureTexts const& texts() const { return m_texts; }
    /// The names that hold all words of the search, in order. They are asked for at the first call, and may come later:
    /// then this is observed. The pointers hold until then.
    [[nodiscard]] std::vector<std::string const*> names(std::string_view search);
    /// Why there are none: none fits, or they are still listed.
    [[nodiscard]] Sentence const& emptyText() const { return m_isKnown ? m_texts.nothingFound : m_texts.loading; }
    [[nodiscard]] ImageRef iconNamed(std::string const& name) const { return m_services.surface.looks.icons.namedIcon(name, nullptr); }
    /// The name in words, for those who hear it.
    [[nodiscard]] static std::string spoken(std::string name);

    void takeIcon(Uuid const& id, std::string const& name) { m_services.editor.setPicture(id, ItemPicture { ItemPicture::Kind::icon, name }); }
    /// Copies the image, a moment later; says so where the file is none.
    void takeImage(Uuid const& id, Url const& file);
    /// Asks for the file first.
    void chooseImage(Uuid const& id);
    void reset(Uuid const& id) { m_services.editor.setPicture(id, std::nullopt); }

    /// Removes the images, later, that neither the menu nor a backup points at. Called while nothing can be undone.
    void removeUnusedImages(MenuStore const& store, std::vector<Url> backups);

private:
    void listNames();
    void add(Uuid const& id, Url const& file, PictureSource::Png const& png);
    void tell(Url const& file, std::string const& reason);

    Services m_services;
    PictureTexts m_texts;
    ItemImages m_images;
    bool m_isAsked = false;
    bool m_isKnown = false;
    std::vector<std::string> m_names; ///< in order
    std::vector<std::string> m_folded; ///< the same, for searching
    ObservationRegistrar m_registrar;
    Lifetime m_lifetime;
};

} // namespace zv
