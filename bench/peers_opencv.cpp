// OpenCV's routines for matrices, on one thread.
#include <opencv2/imgproc.hpp>

#include "bench/bench.h"
#include "suites/blend/signatures.h"
#include "suites/filter/signatures.h"
#include "suites/resample/signatures.h"

namespace vantrix::bench {
namespace {

using cv::Mat;

template <class T>
Mat View(T* first, int32_t rows, int32_t columns, int32_t stride) {
  using Sample = std::remove_const_t<T>;
  return {rows, columns, cv::DataType<Sample>::type, const_cast<Sample*>(first),
          static_cast<size_t>(stride)};
}

void Lighten(const uint8_t* s, uint8_t* d, int32_t rows, int32_t columns, int32_t ss, int32_t ds) {
  Mat to = View(d, rows, columns, ds);
  cv::max(View(s, rows, columns, ss), to, to);
}
void Darken(const uint8_t* s, uint8_t* d, int32_t rows, int32_t columns, int32_t ss, int32_t ds) {
  Mat to = View(d, rows, columns, ds);
  cv::min(View(s, rows, columns, ss), to, to);
}
void Multiply(const uint8_t* s, uint8_t* d, int32_t rows, int32_t columns, int32_t ss, int32_t ds) {
  Mat to = View(d, rows, columns, ds);
  cv::multiply(View(s, rows, columns, ss), to, to, 1 / 255.0);
}
void MultiplyPlanes(const uint8_t* a, uint8_t* d, const uint8_t* b, int32_t rows, int32_t columns,
                    int32_t as, int32_t ds, int32_t bs) {
  Mat to = View(d, rows, columns, ds);
  cv::multiply(View(a, rows, columns, as), View(b, rows, columns, bs), to, 1 / 255.0);
}
void CopyMasked(const uint8_t* s, uint8_t* d, const uint8_t* m, int32_t rows, int32_t columns,
                int32_t ss, int32_t ds, int32_t ms) {
  Mat to = View(d, rows, columns, ds);
  View(s, rows, columns, ss).copyTo(to, View(m, rows, columns, ms));
}
void SetMasked(uint32_t color, uint8_t* d, const uint8_t* m, int32_t rows, int32_t columns,
               int32_t ds, int32_t ms) {
  View(d, rows, columns, ds)
      .setTo(static_cast<double>(static_cast<uint8_t>(color)), View(m, rows, columns, ms));
}

void Convolve(const uint8_t* s, uint8_t* d, uint32_t rows, int32_t columns, int32_t ss, int32_t ds,
              const ConvolutionKernel* kernel) {
  const int32_t height = static_cast<int32_t>(rows), taps = 2 * kernel->radius + 1;
  Mat weights(taps, 1, CV_32F);
  for (int32_t k = 0; k < taps; ++k)
    weights.at<float>(k) = static_cast<float>(kernel->weights[k]) / 256;
  // A part of the matrix, with the rows above and below it.
  const Mat all = View(s - kernel->radius * ss, height + taps - 1, columns, ss);
  Mat to = View(d, height, columns, ds);
  cv::sepFilter2D(all.rowRange(kernel->radius, kernel->radius + height), to, CV_8U,
                  Mat::ones(1, 1, CV_32F), weights);
}

uint32_t SumOfDifferences(const uint8_t* a, const uint8_t* b) {
  return static_cast<uint32_t>(cv::norm(View(a, 1, 128, 128), View(b, 1, 128, 128), cv::NORM_L1));
}

void AverageRows(const uint8_t* s, uint8_t* d, int32_t rows, int32_t width, const int32_t* counts,
                 int32_t ss, int32_t ds) {
  Mat to = View(d, rows, width, ds);
  cv::resize(View(s, rows * counts[0], width, ss), to, to.size(), 0, 0, cv::INTER_AREA);
}
void AverageArea(const uint8_t* s, uint8_t* d, int32_t rows, int32_t columns, int32_t blockWidth,
                 int32_t blockHeight, int32_t ss, int32_t ds) {
  Mat to = View(d, rows, columns, ds);
  cv::resize(View(s, rows * blockHeight, columns * blockWidth, ss), to, to.size(), 0, 0,
             cv::INTER_AREA);
}

// Resamples in one direction only, from as many samples as the lists reach.
template <class T>
void Horizontal(const T* s, T* d, uint32_t rows, int32_t width, const int32_t* offsets,
                const uint8_t*, int32_t ss, int32_t ds, int32_t taps, const int16_t*) {
  Mat to = View(d, static_cast<int32_t>(rows), width, ds);
  cv::resize(
      View(s, static_cast<int32_t>(rows), offsets[width - 1] + static_cast<int16_t>(taps) / 2, ss),
      to, to.size(), 0, 0, cv::INTER_CUBIC);
}
template <class T>
void Vertical(const T* s, T* d, int32_t rows, int32_t width, const int32_t* offsets, const uint8_t*,
              int32_t ss, int32_t ds, int32_t taps, const int16_t*) {
  Mat to = View(d, rows, width, ds);
  cv::resize(View(s, offsets[rows - 1] + static_cast<int16_t>(taps) / 2, width, ss), to, to.size(),
             0, 0, cv::INTER_CUBIC);
}

constexpr const char* kName = "OpenCV";
[[maybe_unused]] const bool kCompete[] = {
    (cv::setNumThreads(1), true),
    Compete(kName, kBlend, {28}, Lighten),
    Compete(kName, kBlend, {29}, Darken),
    Compete(kName, kBlend, {24}, Multiply),
    Compete(kName, kBlend, {74}, MultiplyPlanes),
    Compete(kName, kBlend, {30}, CopyMasked),
    Compete(kName, kBlend, {31}, SetMasked),
    Compete(kName, kFilter, {28}, Convolve),
    Compete(kName, kFilter, {188}, SumOfDifferences),
    Compete(kName, kResample, {3}, AverageRows),
    Compete(kName, kResample, {24}, AverageArea),
    Compete(kName, kResample, {5}, Horizontal<uint8_t>, "4 taps x0.73"),
    Compete(kName, kResample, {5}, Horizontal<uint8_t>, "4 taps x1.7"),
    Compete(kName, kResample, {6}, Vertical<uint8_t>, "4 taps x0.73"),
    Compete(kName, kResample, {13}, Horizontal<uint16_t>, "4 taps x0.73"),
    Compete(kName, kResample, {13}, Horizontal<uint16_t>, "4 taps x1.7"),
    Compete(kName, kResample, {26}, Horizontal<float>, "4 taps x0.73"),
    Compete(kName, kResample, {26}, Horizontal<float>, "4 taps x1.7"),
    Compete(kName, kResample, {27}, Vertical<float>, "4 taps x0.73"),
};

}  // namespace
}  // namespace vantrix::bench
