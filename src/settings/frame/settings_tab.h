#pragma once

/// The pages of the settings window, by the index of their tab.
enum SettingsTab { setupTab, intakeTab, editingTab, transferTab };
