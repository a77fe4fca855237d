#include "precompiled.h"

int main()
{
}
