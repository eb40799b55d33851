#pragma once

#include <wx/choice.h>
#include <wx/combobox.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/IList.h"
#include "entry/EntryForm.h"
#include "ui/FieldLook.h"

namespace ventlock {

/// A drop-down list, of which one item or none is chosen. The index is kept here, because the toolkit's one
/// differs between its ports once something was typed.
class ListField : public IList {
 public:
    ListField(const ListField&) = delete;
    ListField& operator=(const ListField&) = delete;

    [[nodiscard]] int Count() const override;
    [[nodiscard]] std::string Text(int index) const override;
    [[nodiscard]] std::int32_t ItemData(int index) const override;
    void Add(const std::vector<ListItem>& items) override;

    /// Takes all items away; nothing is chosen then. Runs no handler.
    virtual void Clear();

    /// Index of the chosen item, -1 for none.
    [[nodiscard]] int Index() const noexcept { return index_; }

    /// Chooses an item as a pick by the user would, with its handler; -1 chooses none and runs no handler.
    /// Does nothing when it is chosen already.
    virtual void Select(int index) = 0;

    /// Text of the chosen item or, where something can be typed, what stands in the field.
    [[nodiscard]] virtual std::string Text() const = 0;

    [[nodiscard]] ListChoice Choice() const;
    [[nodiscard]] FieldLook& Look() noexcept { return look_; }
    [[nodiscard]] wxControlWithItems& Box() const noexcept { return box_; }

 protected:
    explicit ListField(wxControlWithItems& box) : box_(box), look_(box) {}
    ~ListField() override = default;

    void KeepIndex(int index) noexcept { index_ = index; }

 private:
    wxControlWithItems& box_;
    FieldLook look_;
    std::vector<std::int32_t> itemData_;
    int index_ = -1;
};

/// A list whose items are all that can be chosen. Its handler runs for every choice of an item.
class FixedList final : public ListField {
 public:
    /// `box` must outlive this object.
    FixedList(wxChoice& box, std::function<void()> onClick);

    using ListField::Text;
    void Select(int index) override;
    [[nodiscard]] std::string Text() const override;

 private:
    wxChoice& choice_;
    std::function<void()> onClick_;
};

/// A list that takes a typed text too. Its handler runs whenever the text changes; a picked item counts as a
/// change.
class EditableList final : public ListField {
 public:
    /// `box` must outlive this object.
    EditableList(wxComboBox& box, std::function<void()> onChange);

    using ListField::Text;
    void Clear() override;
    void Select(int index) override;
    [[nodiscard]] std::string Text() const override;

    /// Puts a text into the field as if it had been typed: no item is chosen, even if one has this text.
    void SetText(const std::string& text);

    [[nodiscard]] wxComboBox& Combo() const noexcept { return combo_; }

 private:
    void Show(const std::string& text, int index);
    void TakeTyped();
    void TakePicked(int index);

    wxComboBox& combo_;
    std::function<void()> onChange_;
    std::string text_;  ///< what the handler knows of
};

}  // namespace ventlock
