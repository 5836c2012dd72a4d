/**
 * @file
 * @brief What a device keeps of the classifier.
 */
#ifndef LMQ_DRIVER_CLASSIFIER_H
#define LMQ_DRIVER_CLASSIFIER_H

namespace lmq::sim {

/** @brief State of the family. */
struct Classifier {};

}  // namespace lmq::sim

#endif
