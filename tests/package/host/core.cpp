int coreOfTheHost() {
    return 1;
}
