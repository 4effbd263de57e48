#pragma once

/// The object that the power control simulator runs on. It is only handed from one controller to another, so
/// that its definition stays in the power control module.
class ISpcSimulatedObject;
