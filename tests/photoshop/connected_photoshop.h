// A test connected to a simulated Photoshop, from an example scenario file or from scenario text; at the end it
// lets go of the connection and checks that no simulated object is left alive.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "ostrel/lifecycle.h"
#include "platform/platform.h"
#include "simulator/photoshop.h"
#include "simulator/scenario.h"
#include "../support/example_scenarios.h"

namespace ostrel::test {

class ConnectedPhotoshopTest : public ::testing::Test {
 protected:
  void Connect(const char* scenarioFile = "layers_and_group.json") {
    Install(sim::SimulatedPhotoshop(ExampleScenario(scenarioFile)));
  }
  void ConnectToText(const std::string& scenario) {
    Install(sim::SimulatedPhotoshop(sim::ParseScenario(scenario, ExamplesDir(), "test.json")));
  }
  void TearDown() override {
    Ostrel_UnInit();
    if (m_photoshop) {
      EXPECT_EQ(m_photoshop->LiveObjects(), 0);
    }
  }

  std::unique_ptr<sim::SimulatedPhotoshop> m_photoshop;
  std::unique_ptr<ScopedPlatform> m_platform;

 private:
  void Install(sim::SimulatedPhotoshop photoshop) {
    Ostrel_UnInit();
    m_platform.reset();  // the previous Photoshop's platform goes first, so that it restores the default
    m_photoshop = std::make_unique<sim::SimulatedPhotoshop>(std::move(photoshop));
    m_platform = std::make_unique<ScopedPlatform>(Platform{.automation = m_photoshop.get()});
    ASSERT_EQ(Ostrel_Init(), 1);
  }
};

}  // namespace ostrel::test
