#include "platform/qt/paint_qt.h"

#include <QBuffer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPageSize>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>
#include <array>
#include <cmath>
#include <vector>

#include "base/words.h"
#include "platform/qt/paint_canvas.h"

namespace paint {
namespace {

constexpr int kPdfDots = 1200;
constexpr double kMaxImage = 20000;  // pixels a side

std::string sentence(const QString& path, const std::string& reason) {
  return words("{file} cannot be written: {reason}.", "file", path.toStdString(), "reason", reason);
}

// The whole or nothing: beside the target first, then renamed. What Qt's own writers make of
// a full disk is not always an error, so the bytes are counted here.
void writeWhole(QSaveFile& file, const QByteArray& bytes) {
  const bool open = file.isOpen() || file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
  if (open && file.write(bytes) == bytes.size() && file.commit()) return;
  const std::string text = sentence(file.fileName(), file.errorString().toStdString());
  file.cancelWriting();
  throw PaintError(text);
}

QPageSize pageSize(double width, double height) {
  return QPageSize(QSizeF(width, height), QPageSize::Point, QString(), QPageSize::ExactMatch);
}

class PdfCanvas final : public QtCanvas {
 public:
  PdfCanvas(std::shared_ptr<TextSetter> setter, const std::string& path)
      : QtCanvas(std::move(setter)), file_(QString::fromStdString(path)) {
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
      throw PaintError(sentence(file_.fileName(), file_.errorString().toStdString()));
    buffer_.open(QIODevice::WriteOnly);
    writer_ = std::make_unique<QPdfWriter>(&buffer_);
    writer_->setResolution(kPdfDots);
    writer_->setTitle(QFileInfo(file_.fileName()).completeBaseName());
    writer_->setCreator(QStringLiteral("Mirav"));
  }

  ~PdfCanvas() override {
    if (painter_.isActive()) painter_.end();
    file_.cancelWriting();
  }

  void page(double width, double height) override {
    writer_->setPageSize(pageSize(width, height));
    writer_->setPageMargins(QMarginsF());
    const bool begun = painter_.isActive() ? writer_->newPage() : painter_.begin(writer_.get());
    if (!begun) throw PaintError(sentence(file_.fileName(), words("the page cannot be drawn")));
    settle(kPdfDots / 72.0);
  }

  void finish() override {
    if (!painter_.isActive()) page(595.276, 841.89);
    painter_.end();
    writer_.reset();
    writeWhole(file_, buffer_.data());
  }

 private:
  QSaveFile file_;
  QBuffer buffer_;
  std::unique_ptr<QPdfWriter> writer_;
};

class ImageCanvas final : public QtCanvas {
 public:
  ImageCanvas(std::shared_ptr<TextSetter> setter, const std::string& path, double dpi)
      : QtCanvas(std::move(setter)), path_(QString::fromStdString(path)), dots_(dpi / 72) {}

  ~ImageCanvas() override {
    if (painter_.isActive()) painter_.end();
  }

  void page(double width, double height) override {
    if (painter_.isActive()) painter_.end();
    const double w = std::ceil(width * dots_), h = std::ceil(height * dots_);
    if (!(w >= 1 && h >= 1 && w <= kMaxImage && h <= kMaxImage))
      throw PaintError(words("The picture {file} would be too large.", "file", path_.toStdString()));
    pages_.emplace_back(static_cast<int>(w), static_cast<int>(h), QImage::Format_RGB32);
    pages_.back().setDotsPerMeterX(static_cast<int>(std::lround(dots_ * 72 / 0.0254)));
    pages_.back().setDotsPerMeterY(static_cast<int>(std::lround(dots_ * 72 / 0.0254)));
    pages_.back().fill(Qt::white);
    painter_.begin(&pages_.back());
    settle(dots_);
  }

  void finish() override {
    if (painter_.isActive()) painter_.end();
    const QFileInfo target(path_);
    const bool jpeg = target.suffix().startsWith(QLatin1String("JP"), Qt::CaseInsensitive);
    constexpr int kJpegQuality = 88;
    for (size_t i = 0; i < pages_.size(); ++i) {
      const QString name = i == 0 ? path_
                                  : QStringLiteral("%1/%2-%3.%4")
                                        .arg(target.path(), target.completeBaseName())
                                        .arg(i + 1)
                                        .arg(target.suffix());
      QBuffer bytes;
      bytes.open(QIODevice::WriteOnly);
      pages_[i].save(&bytes, jpeg ? "JPG" : "PNG", jpeg ? kJpegQuality : -1);
      QSaveFile file(name);
      writeWhole(file, bytes.data());
    }
  }

 private:
  QString path_;
  double dots_;
  std::vector<QImage> pages_;
};

class PrinterCanvas final : public QtCanvas {
 public:
  PrinterCanvas(std::shared_ptr<TextSetter> setter, const QPrinterInfo& info)
      : QtCanvas(std::move(setter)), printer_(info, QPrinter::HighResolution) {
    printer_.setFullPage(true);
    printer_.setDocName(QStringLiteral("Mirav"));
    printer_.setCreator(QStringLiteral("Mirav"));
  }

  ~PrinterCanvas() override {
    if (painter_.isActive()) {
      printer_.abort();
      painter_.end();
    }
  }

  void page(double width, double height) override {
    // A printer knows its papers upright.
    const bool wide = width > height;
    printer_.setPageSize(pageSize(wide ? height : width, wide ? width : height));
    printer_.setPageOrientation(wide ? QPageLayout::Landscape : QPageLayout::Portrait);
    const bool begun = painter_.isActive() ? printer_.newPage() : painter_.begin(&printer_);
    if (!begun)
      throw PaintError(
          words("The printer {printer} cannot be used.", "printer", printer_.printerName().toStdString()));
    settle(printer_.resolution() / 72.0);
  }

  void finish() override {
    if (painter_.isActive() && (!painter_.end() || printer_.printerState() == QPrinter::Error))
      throw PaintError(words("The printer {printer} did not take the job.", "printer",
                             printer_.printerName().toStdString()));
  }

 private:
  QPrinter printer_;
};

class QtMetrics final : public Metrics {
 public:
  explicit QtMetrics(std::shared_ptr<TextSetter> setter) : setter_(std::move(setter)) {}

  double width(std::string_view text, const Font& font) const override { return setter_->width(text, font); }
  double lineHeight(const Font& font) const override { return setter_->lineHeight(font); }
  double wrappedHeight(std::string_view text, const Font& font, double width) const override {
    const Text whole{.text = text, .box = {}, .clip = {}, .font = font, .colour = {}};
    return setter_->wrapped(whole, width, HAlign::Left)->lineCount() * setter_->lineHeight(font);
  }

 private:
  std::shared_ptr<TextSetter> setter_;
};

class QtPainter final : public Painter {
 public:
  const Metrics& metrics() const override { return metrics_; }
  std::unique_ptr<Canvas> pdf(const std::string& path) override {
    return std::make_unique<PdfCanvas>(setter_, path);
  }
  std::unique_ptr<Canvas> image(const std::string& path, double dpi) override {
    return std::make_unique<ImageCanvas>(setter_, path, dpi);
  }
  std::unique_ptr<Canvas> printer() override {
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) throw PaintError(english("No Printer Found"));
    return std::make_unique<PrinterCanvas>(setter_, info);
  }

 private:
  std::shared_ptr<TextSetter> setter_ = std::make_shared<TextSetter>();
  QtMetrics metrics_{setter_};
};

}  // namespace

void ensureGui() {
  if (QCoreApplication::instance()) return;
  static std::array<char, 6> name{"mirav"};
  static std::array<char, 10> option{"-platform"};
  static std::array<char, 10> platform{"offscreen"};
  static std::array<char*, 4> arguments{name.data(), option.data(), platform.data(), nullptr};
  static int count = 3;
  static const QGuiApplication application(count, arguments.data());
}

std::unique_ptr<Painter> makePainter() {
  ensureGui();
  return std::make_unique<QtPainter>();
}

}  // namespace paint
