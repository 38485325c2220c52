#pragma once

/// Makes the sheets of chapters, characters, locations and items known to the model.
void registerSheets();
