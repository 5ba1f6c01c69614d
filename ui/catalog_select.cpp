#include "ui/catalog_select.h"

#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QVBoxLayout>

#include "catalog/catalog_select.h"
#include "ui/latin1.h"

namespace astel::ui {

CatalogSelectDialog::CatalogSelectDialog(GuiContext& context, QWidget* parent)
    : QDialog(parent), context_(context) {
  setObjectName("CatalogSelect");
  setWindowTitle("Select Catalog");
  const SharedState& s = context_.state;

  // Linux has no drive letters: the places a catalog usually lives take their part.
  drive1_ = new QComboBox(this);
  drive1_->setObjectName("Drive1");
  drive1_->setToolTip("Choose where to look for catalogs");
  drive1_->addItem("Program folder", FromLatin1(s.files.installDir));
  drive1_->addItem("Home folder", QDir::homePath());
  drive1_->addItem("Whole computer (/)", "/");
  path_ = new QLabel(this);
  path_->setObjectName("DirPath");
  path_->setWordWrap(true);
  dir1_ = new QListWidget(this);
  dir1_->setObjectName("Dir1");
  dir1_->setToolTip("Double-click a folder to open it");
  file1_ = new QListWidget(this);
  file1_->setObjectName("File1");
  file1_->setToolTip("Click a catalog to make it the current catalog");
  defaultCat_ = new QPushButton("Default Catalog", this);
  defaultCat_->setObjectName("DefaultCat");
  newCatalog_ = new QPushButton("New Catalog", this);
  newCatalog_->setObjectName("NewCatalog");
  newCatalog_->setToolTip("Create a new, empty catalog file in this folder");

  auto* folders = new QGroupBox("Folders", this);
  auto* foldersLayout = new QVBoxLayout(folders);
  foldersLayout->addWidget(drive1_);
  foldersLayout->addWidget(path_);
  foldersLayout->addWidget(dir1_);
  auto* catalogs = new QGroupBox("Catalogs (*.OBC)", this);
  auto* catalogsLayout = new QVBoxLayout(catalogs);
  catalogsLayout->addWidget(file1_);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(defaultCat_);
  buttons->addWidget(newCatalog_);
  catalogsLayout->addLayout(buttons);
  auto* layout = new QHBoxLayout(this);
  layout->addWidget(folders, 1);
  layout->addWidget(catalogs, 1);

  connect(drive1_, &QComboBox::activated, this,
          [this](int index) { setDirectory(drive1_->itemData(index).toString()); });
  connect(dir1_, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) {
    setDirectory(QDir(directory_).absoluteFilePath(item->text()));
  });
  connect(file1_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    if (SelectCatalogFile(context_.state, context_.dialogs, directory(), ToLatin1(item->text()))) {
      accept();
    }
  });
  connect(defaultCat_, &QPushButton::clicked, this, [this] {
    if (OpenDefaultCatalog(context_.state, context_.dialogs, directory())) accept();
  });
  connect(newCatalog_, &QPushButton::clicked, this, [this] {
    if (NewCatalog(context_.state, context_.dialogs, directory())) accept();
  });
  const DefaultCatalogButton defaultButton = DefaultCatalogButtonState(s);
  defaultCat_->setEnabled(defaultButton.enabled);
  defaultCat_->setToolTip(FromLatin1(defaultButton.toolTip));

  const std::string start =
      s.files.catalogDirectory.empty() ? s.files.installDir : s.files.catalogDirectory;
  setDirectory(FromLatin1(start));
  resize(640, 380);
}

std::string CatalogSelectDialog::directory() const {
  std::string dir = ToLatin1(directory_);
  if (dir.empty() || dir.back() != '/') dir += '/';
  return dir;
}

void CatalogSelectDialog::setDirectory(const QString& path) {
  QDir dir(path.isEmpty() ? QDir::currentPath() : path);
  if (!dir.exists()) dir = QDir::home();
  directory_ = dir.canonicalPath();
  path_->setText(directory_);
  dir1_->clear();
  if (!dir.isRoot()) dir1_->addItem("..");
  dir1_->addItems(dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase));
  file1_->clear();
  file1_->addItems(dir.entryList({"*.OBC"}, QDir::Files, QDir::Name | QDir::IgnoreCase));
}

}  // namespace astel::ui
