/// \file
/// The records that a host fills for InsertItem, UpdateItem and Create. Included by qvl.h.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

/// Marks what the library exports.
#ifdef QVL_BUILD
#define QVL_API __declspec(dllexport)
#else
#define QVL_API __declspec(dllimport)
#endif

/// Describes one item or one cell to InsertItem and UpdateItem. A view reads it only during the
/// call, so a host can fill one record again and again. It has no locks and belongs to the thread
/// that uses it.
class QVL_API QVLTreeViewItem {
 public:
  /// Sets type 0, empty texts, no flags, image and state index -1, cell 0, indent offset 0 and
  /// client value 0.
  QVLTreeViewItem() noexcept;
  /// Frees the texts.
  virtual ~QVLTreeViewItem();

  /// \name Type
  /// \{

  /// Kind of record. With system icons, type 1 makes InsertItem look up the icon by the file's base
  /// name and extension alone. Every other type uses the whole file name.
  virtual void SetType(int type) noexcept;
  virtual int GetType() const noexcept;
  /// \}

  /// \name Item name
  /// \{

  /// Text of the item or cell. The record copies it. Null, an empty text and a text for which there
  /// is no memory leave the field empty. The result is never null. It is valid until the field is
  /// set again or the record is destroyed.
  virtual const WCHAR* GetItemName() const noexcept;
  virtual void SetItemName(const WCHAR* name) noexcept;
  /// \}

  /// \name File name
  /// \{

  /// File that the item stands for; its shell icon comes from this name. Same rules as the item
  /// name.
  virtual const WCHAR* GetFileName() const noexcept;
  virtual void SetFileName(const WCHAR* name) noexcept;
  /// \}

  /// \name Selected
  /// \{

  /// True makes the item the caret (tree) or selects the row (list) once it exists. False leaves
  /// the selection as it is.
  virtual void SetSelected(bool value) noexcept;
  virtual bool IsSelected() const noexcept;
  /// \}

  /// \name Checked
  /// \{

  /// True checks the box in a view with QVLS_CHECKBOXES. False leaves the box as it is.
  virtual void SetChecked(bool value) noexcept;
  virtual bool IsChecked() const noexcept;
  /// \}

  /// \name Cut
  /// \{

  /// Draws the item as cut. Has an effect only if the state index is not -1.
  virtual void SetCut(bool value) noexcept;
  virtual bool IsCut() const noexcept;
  /// \}

  /// \name Image index
  /// \{

  /// Index into the view's image list. Not read while the view uses system icons.
  virtual void SetImageIndex(int index) noexcept;
  virtual int GetImageIndex() const noexcept;
  /// \}

  /// \name State index
  /// \{

  /// State image: the tree shows image `index`, the list image `index` + 1. With -1 the record sets
  /// no state at all, so bold and cut have no effect either.
  virtual void SetStateIndex(int index) noexcept;
  virtual int GetStateIndex() const noexcept;
  /// \}

  /// \name Client value
  /// \{

  /// The host's own value. The view stores it with the item and returns it from GetItemClientPtr.
  virtual std::int64_t GetClientPtr() const noexcept;
  virtual void SetClientPtr(std::int64_t value) noexcept;
  /// \}

  /// \name Bold
  /// \{

  /// Draws the item bold, in a tree only. Has an effect only if the state index is not -1.
  virtual void SetBold(bool value) noexcept;
  virtual bool IsBold() const noexcept;
  /// \}

  /// \name Cell number
  /// \{

  /// 0 is the item itself. The tree refuses every other value. In a list a value above 0 is a cell
  /// of an existing row.
  virtual int GetSubItem() const noexcept;
  virtual void SetSubItem(int subItem) noexcept;
  /// \}

  /// \name Indent offset
  /// \{

  /// Added to the depth of a new list row. A negative depth becomes 0.
  virtual int GetIndentOffset() const noexcept;
  virtual void SetIndentOffset(int offset) noexcept;
  /// \}

  /// Not copied: a copy could fail for lack of memory, and a record cannot report that.
  QVLTreeViewItem(const QVLTreeViewItem&) = delete;
  QVLTreeViewItem& operator=(const QVLTreeViewItem&) = delete;  ///< Not copied.

 private:
  std::int32_t type = 0;
  std::basic_string<WCHAR> itemName;
  std::basic_string<WCHAR> fileName;
  std::uint32_t flags = 0;
  std::int32_t imageIndex = -1;
  std::int32_t stateIndex = -1;
  std::int32_t subItem = 0;
  std::int32_t indentOffset = 0;
  std::int64_t clientPtr = 0;
};

/// Platform style bits that Create adds to those of its flags. All are 0 at first.
class QVL_API QVLTreeViewStyleExt {
 public:
  /// Sets all bits to 0.
  QVLTreeViewStyleExt() noexcept;
  virtual ~QVLTreeViewStyleExt();  ///< Nothing to free.

  /// \name Style
  /// \{

  /// Window style bits of the control.
  virtual void SetStyle(std::uint32_t style) noexcept;
  virtual std::uint32_t GetStyle() const noexcept;
  /// \}

  /// \name Extended style
  /// \{

  /// Extended window style bits of the control.
  virtual void SetStyleEx(std::uint32_t style) noexcept;
  virtual std::uint32_t GetStyleEx() const noexcept;
  /// \}

  /// \name Extended list style
  /// \{

  /// Extended list style bits (LVS_EX_...). The tree does not read them.
  virtual void SetStyleExCtrl(std::uint32_t style) noexcept;
  virtual std::uint32_t GetStyleExCtrl() const noexcept;
  /// \}

 private:
  std::uint32_t style = 0;
  std::uint32_t styleEx = 0;
  std::uint32_t styleExCtrl = 0;
};
