#pragma once

// Names the application and its maker; they choose the settings store.
void setApplicationIdentity();
