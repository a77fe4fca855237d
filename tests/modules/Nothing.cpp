extern "C" int nothingForAnyone();

extern "C" int nothingForAnyone()
{
    return 0;
}
