#pragma once

// UserDialogs with answers written in advance, recording every question, for
// driving view models and the shell in tests.

#include "app/shell/file_names.h"
#include "app/shell/user_dialogs.h"

#include <deque>
#include <vector>

namespace trackloom::testing {

struct ScriptedDialogs : UserDialogs {
    std::deque<std::optional<QString>> filesToOpen;
    std::deque<std::optional<QString>> filesToSave;
    std::deque<bool> confirmations;
    /// Hands protected destinations back as chosen, as a careless platform
    /// dialog would, so that a model's own last check can be tested.
    bool skipsProtection = false;

    std::vector<QString> openTitles;
    std::vector<QStringList> openFilters;
    std::vector<Confirmation> questions;
    std::vector<std::pair<QString, QString>> messages;

    std::optional<QString> fileToOpen(const QString& title, const QStringList& filters) override {
        openTitles.push_back(title);
        openFilters.push_back(filters);
        return next(filesToOpen, std::optional<QString>());
    }
    // Like the real dialog: a protected destination is refused and the next
    // scripted answer is taken, before any question about replacing.
    std::optional<QString> fileToSave(const QString& title, const QString&, const QStringList&,
                                      const QStringList& protectedPaths) override {
        for (;;) {
            const auto chosen = next(filesToSave, std::optional<QString>());
            if (!chosen || skipsProtection) {
                return chosen;
            }
            const auto refusal = protectedDestinationRefusal(*chosen, protectedPaths);
            if (!refusal) {
                return chosen;
            }
            messages.emplace_back(title, *refusal);
        }
    }
    bool confirm(const Confirmation& confirmation) override {
        questions.push_back(confirmation);
        return next(confirmations, false);
    }
    void inform(const QString& title, const QString& text) override {
        messages.emplace_back(title, text);
    }

  private:
    // An unscripted question gets the safe answer: cancel.
    template <typename T> static T next(std::deque<T>& answers, T fallback) {
        if (answers.empty()) {
            return fallback;
        }
        T answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

} // namespace trackloom::testing
