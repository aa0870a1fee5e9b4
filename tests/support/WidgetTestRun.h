#pragma once

/// Runs all tests with an application, and with settings and data folders of their own that are gone afterwards.
int runWidgetTests(int argc, char **argv);
