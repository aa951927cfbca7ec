import Hmatnik

// Says honestly that a screen is still to come.
EmptyState {
    title: "Tato obrazovka se připravuje"
    description: "Zatím tu nic není. Objeví se v některé z příštích verzí."
}
