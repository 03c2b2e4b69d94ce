// SPDX-License-Identifier: MIT

// A task of which nothing runs.
TaskListItemGroupBoxStyle {}
