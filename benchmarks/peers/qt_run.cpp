// Cuts a job's files with Qt's `scaled` and `save`.
#include <QByteArray>
#include <QCoreApplication>
#include <QImage>
#include <QImageReader>
#include <QString>

#include "benchmarks/job.h"

int main(int argc, char** argv) {
  using namespace tessarine::benchmarks;
  const QCoreApplication application(argc, argv);  // finds the TIFF plug-in
  const Job job = readJob(argc, argv);
  QImageReader::setAllocationLimit(0);
  const auto source = QByteArray::fromRawData(reinterpret_cast<const char*>(job.source.data()),
                                              static_cast<qsizetype>(job.source.size()));
  timed([&] {
    for (const Row& row : job.rows) {
      const QImage picture = QImage::fromData(source);
      must(!picture.isNull(), "decode");
      const QImage scaled =
          picture.scaled(row.width, row.height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
      must(scaled.convertToFormat(QImage::Format_RGBA8888)
               .save(QString::fromStdString(job.pathOf(row)), "PNG"),
           "save");
    }
  });
}
