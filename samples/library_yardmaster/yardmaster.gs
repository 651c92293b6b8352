// Gives free sidings to arriving trains, the shortest that is long enough first.
include "sidings.gs"

class YardMaster
{
  Siding[] sidings = new Siding[0];

  public Siding Give(float trainLength)
  {
    Siding best = null;
    int i;
    for (i = 0; i < sidings.size(); ++i)
      if (!sidings[i].taken and sidings[i].length >= trainLength)
        if (!best or sidings[i].length < best.length)
          best = sidings[i];
    if (best)
      best.taken = true;
    return best;
  }
};
