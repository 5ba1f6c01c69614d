// CatalogSelect: the current catalog chosen from the file system, the default catalog, or a new
// catalog file. File1, DefaultCat and NewCatalog go to catalog/catalog_select.h; the window closes
// when the catalog was opened.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "ui/gui_context.h"

namespace astel::ui {

class CatalogSelectDialog : public QDialog {
  Q_OBJECT
 public:
  CatalogSelectDialog(GuiContext& context, QWidget* parent);

  // The folder shown in Dir1 and File1, ending in "/".
  std::string directory() const;
  void setDirectory(const QString& path);

  QComboBox* drives() const { return drive1_; }
  QListWidget* directories() const { return dir1_; }
  QListWidget* files() const { return file1_; }
  QPushButton* defaultCatalogButton() const { return defaultCat_; }
  QPushButton* newCatalogButton() const { return newCatalog_; }

 private:
  GuiContext& context_;
  QString directory_;
  QComboBox* drive1_;
  QLabel* path_;
  QListWidget* dir1_;
  QListWidget* file1_;
  QPushButton* defaultCat_;
  QPushButton* newCatalog_;
};

}  // namespace astel::ui
